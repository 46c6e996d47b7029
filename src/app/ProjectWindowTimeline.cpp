// The timeline strip in the project window: its place under the movie and the editor (height
// and visibility remembered), the View menu that shows, hides and zooms it, and the fix
// commands' snapping to speech.
#include "CTPreferenceController.h"
#include "ProjectWindow.h"
#include "Settings.h"
#include "SpeechSnapper.h"
#include "TimelineView.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QSplitter>

using namespace Qt::StringLiterals;

void ProjectWindow::setUpTimeline(QSplitter *splitter)
{
    CTPreferenceController::registerDefaults();
    Settings &settings = Settings::shared();
    m_snapper = std::make_unique<SpeechSnapper>();
    m_timeline = new TimelineView(m_project.get(), m_snapper.get(), splitter);
    splitter->addWidget(m_timeline);
    splitter->setStretchFactor(0, 1);
    splitter->setStretchFactor(1, 0);
    splitter->setCollapsible(0, false);
    splitter->setCollapsible(1, false);
    const int height = std::max(int(settings.integerValue(CTPreferenceController::TimelineHeightKey)),
                                m_timeline->minimumHeight());
    splitter->setSizes({std::max(this->height() - height, 200), height});
    connect(splitter, &QSplitter::splitterMoved, this, [this] {
        if (m_timeline->isVisible())
            Settings::shared().setValue(CTPreferenceController::TimelineHeightKey, m_timeline->height());
    });
    m_timeline->setVisible(settings.boolValue(CTPreferenceController::ShowTimelineKey));

    // The fix commands fix at the playing time snapped to speech; a drag's fix snaps with the
    // keys held when it was dropped.
    m_project->setFixTimeAdjustment(
        [this](double seconds) { return m_snapper->snapped(seconds, m_timeline->modifiersForFix()); });
    // The fix keys with the bypass modifier held as well fix without snapping.
    for (const QString &command :
         {u"fixSubtitleStart:"_s, u"shiftSubtitles:"_s, u"fixSingleSubtitleStart:"_s}) {
        if (QAction *item = action(command); item && !item->shortcut().isEmpty()) {
            const QKeyCombination key = item->shortcut()[0];
            item->setShortcuts(
                {item->shortcut(), QKeySequence(QKeyCombination(
                                       key.keyboardModifiers() | SpeechSnapper::BypassModifier, key.key()))});
        }
    }

    QMenu *view = menuBar()->addMenu(tr("&View"));
    m_showTimeline = view->addAction(tr("Show Timeline"));
    m_showTimeline->setObjectName(u"showTimeline"_s);
    m_showTimeline->setCheckable(true);
    m_showTimeline->setChecked(m_timeline->isVisibleTo(this));
    m_showTimeline->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_T));
    connect(m_showTimeline, &QAction::toggled, this, [this](bool on) {
        m_timeline->setVisible(on);
        Settings::shared().setValue(CTPreferenceController::ShowTimelineKey, on);
    });
    view->addSeparator();
    QAction *zoomIn = view->addAction(tr("Zoom In"));
    zoomIn->setObjectName(u"timelineZoomIn"_s);
    zoomIn->setShortcuts({QKeySequence(Qt::CTRL | Qt::Key_Plus), QKeySequence(Qt::CTRL | Qt::Key_Equal)});
    connect(zoomIn, &QAction::triggered, this, [this] { m_timeline->zoomIn(); });
    QAction *zoomOut = view->addAction(tr("Zoom Out"));
    zoomOut->setObjectName(u"timelineZoomOut"_s);
    zoomOut->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Minus));
    connect(zoomOut, &QAction::triggered, this, [this] { m_timeline->zoomOut(); });
    QAction *whole = view->addAction(tr("Show Whole Movie"));
    whole->setObjectName(u"timelineWholeMovie"_s);
    whole->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_0));
    connect(whole, &QAction::triggered, this, [this] { m_timeline->showWholeMovie(); });
    // Zooming needs the strip on screen.
    connect(view, &QMenu::aboutToShow, this, [this, zoomIn, zoomOut, whole] {
        for (QAction *item : {zoomIn, zoomOut, whole})
            item->setEnabled(m_timeline->isVisible());
    });
}
