#include "PlaybackMenu.h"

#include "CTWindowController.h"
#include "ProjectView.h"

#include <QAction>
#include <QActionGroup>
#include <QLocale>

using namespace Qt::StringLiterals;

QString PlaybackMenu::speedName(double speed)
{
    return u"speed:"_s + QString::number(speed);
}

PlaybackMenu::PlaybackMenu(CTWindowController &project, ProjectView &view, QWidget *parent)
    : QMenu(tr("&Playback"), parent)
    , m_project(project)
    , m_view(view)
    , m_aids(project)
{
    addItem(tr("Play Current Line"), PlayLine, QKeySequence(Qt::CTRL | Qt::Key_P),
            [this] { m_aids.playLine(); });
    QAction *loop = addItem(tr("Loop Current Line"), LoopLine, QKeySequence(Qt::CTRL | Qt::Key_L),
                            [this] { m_aids.toggleLoop(); });
    loop->setCheckable(true);
    addItem(tr("Play from Half a Second Before"), PlayFromLeadIn, QKeySequence(Qt::CTRL | Qt::Key_B),
            [this] { m_aids.playFromLeadIn(); });

    addSeparator();
    m_speedGroup = new QActionGroup(this);
    const QList<double> &speeds = PlaybackAids::speeds();
    for (qsizetype i = 0; i < speeds.size(); ++i) {
        const double speed = speeds[i];
        const QByteArray name = speedName(speed).toLatin1();
        QAction *item = addItem(tr("%1× Speed").arg(QLocale().toString(speed)), name.constData(),
                                QKeySequence(Qt::CTRL | (Qt::Key_1 + int(i))), [this, speed] {
                                    m_aids.setSpeed(speed);
                                    refresh();
                                });
        item->setCheckable(true);
        m_speedGroup->addAction(item);
    }

    addSeparator();
    addItem(tr("Set Start to Playing Time"), SetStart, QKeySequence(Qt::CTRL | Qt::Key_J), [this] {
        if (beforeEdit)
            beforeEdit();
        m_aids.setStartToPlayingTime();
    });
    addItem(tr("Set End to Playing Time"), SetEnd, QKeySequence(Qt::CTRL | Qt::Key_E), [this] {
        if (beforeEdit)
            beforeEdit();
        m_aids.setEndToPlayingTime();
    });

    connect(this, &QMenu::aboutToShow, this, &PlaybackMenu::refresh);
    // The states follow the project, so that a key works exactly when its item is enabled.
    for (const QString &key :
         {u"currentSubtitle"_s, u"hasMovie"_s, u"playing"_s, u"fixMode"_s, u"subtitles"_s}) {
        m_observations.push_back(
            project.observeKey(key, [this](Observable *, const QString &, Observable::Change change) {
                if (change == Observable::Change::Did)
                    refresh();
            }));
    }
    m_observations.push_back(project.observeKey(
        u"currentTime"_s, [this](Observable *, const QString &, Observable::Change change) {
            if (change == Observable::Change::Did)
                refreshTimeDependent();
        }));
    refresh();
}

PlaybackMenu::~PlaybackMenu() = default;

QAction *PlaybackMenu::addItem(const QString &title, const char *name, const QKeySequence &key,
                               std::function<void()> run)
{
    QAction *item = addAction(title);
    item->setObjectName(QString::fromLatin1(name));
    item->setShortcut(key);
    connect(item, &QAction::triggered, this, [this, item, run = std::move(run)] {
        // The states may be a moment old (the playing time moves): what is not possible now
        // does nothing.
        refresh();
        if (!item->isEnabled())
            return;
        run();
        refresh();
    });
    return item;
}

QAction *PlaybackMenu::item(const QString &name) const
{
    return findChild<QAction *>(name);
}

void PlaybackMenu::refresh()
{
    const bool free = !m_view.hasAttachedSheet();
    const bool canPlay = free && m_aids.canPlayLine();
    item(QString::fromLatin1(PlayLine))->setEnabled(canPlay);
    item(QString::fromLatin1(PlayFromLeadIn))->setEnabled(canPlay);
    QAction *loop = item(QString::fromLatin1(LoopLine));
    loop->setEnabled(canPlay || (free && m_aids.isLooping()));
    loop->setChecked(m_aids.isLooping());
    for (QAction *speed : m_speedGroup->actions()) {
        speed->setEnabled(free);
        speed->setChecked(speed->objectName() == speedName(m_aids.speed()));
    }
    refreshTimeDependent();
}

void PlaybackMenu::refreshTimeDependent()
{
    const bool free = !m_view.hasAttachedSheet();
    item(QString::fromLatin1(SetStart))->setEnabled(free && m_aids.canSetStart());
    item(QString::fromLatin1(SetEnd))->setEnabled(free && m_aids.canSetEnd());
    QAction *loop = item(QString::fromLatin1(LoopLine));
    if (loop->isChecked() != m_aids.isLooping())
        loop->setChecked(m_aids.isLooping());
}
