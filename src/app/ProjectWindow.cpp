#include "ProjectWindow.h"

#include "CTFixButton.h"
#include "CTFixButtonBackground.h"
#include "CTTimeView.h"
#include "CueTableModel.h"
#include "CueTableView.h"
#include "FixPanel.h"
#include "Log.h"
#include "MoviePlaceholder.h"
#include "PlaybackMenu.h"
#include "Settings.h"
#include "SpeechSnapper.h"
#include "TimelineView.h"
#include "TutorialOverlay.h"
#include "VHTimeValueTransformer.h"
#include "WindowStatusBar.h"

#include <QApplication>
#include <QCheckBox>
#include <QCloseEvent>
#include <QDialog>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSlider>
#include <QSplitter>
#include <QStyle>
#include <QStyledItemDelegate>
#include <QTableView>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>

#include <cmath>

using namespace Qt::StringLiterals;

// The cue table repaints all its rows whenever a line changes (a correction of the new line's
// end, the playback time moving the overlay, ...), and the view then hands every open editor
// its cell's value again: that would put back the old text over what is being typed, and drop
// the selection of the text. An editor gets its cell's value once, when it opens.
class CueItemDelegate final : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override
    {
        QWidget *editor = QStyledItemDelegate::createEditor(parent, option, index);
        lastEditor = editor;
        connect(this, &QAbstractItemDelegate::closeEditor, editor, [this, editor] {
            if (lastEditor == editor)
                lastEditor = nullptr;
        });
        return editor;
    }
    void setEditorData(QWidget *editor, const QModelIndex &index) const override
    {
        if (editor->property(FilledProperty).toBool())
            return;
        editor->setProperty(FilledProperty, true);
        QStyledItemDelegate::setEditorData(editor, index);
    }

    // The editor opened last, while it is open.
    mutable QPointer<QWidget> lastEditor;

private:
    static constexpr const char *FilledProperty = "captoraEditorFilled";
};

ProjectWindow::ProjectWindow(QWidget *parent)
    : QMainWindow(parent)
    , m_project(std::make_unique<CTWindowController>(this, nullptr))
{
    setAcceptDrops(true);
    auto *splitter = new QSplitter(Qt::Horizontal, this);
    splitter->addWidget(buildMovieSide());
    splitter->addWidget(buildEditorSide());
    splitter->setStretchFactor(0, 1);
    splitter->setStretchFactor(1, 1);
    splitter->setSizes({560, 640}); // the table has seven columns
    auto *vertical = new QSplitter(Qt::Vertical, this);
    vertical->addWidget(splitter);
    setCentralWidget(vertical);
    m_statusBar = new WindowStatusBar(m_project.get(), this);
    setStatusBar(m_statusBar);
    buildMenus();
    setUpTimeline(vertical);
    observeProject();
    m_project->setCommandHandler([this](const QString &command) {
        if (m_commandHandler)
            m_commandHandler(command);
        else
            logLine(u"Info: \"%1\" is not available in this build"_s.arg(command));
    });
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget *, QWidget *now) { focusChanged(now); });
    qApp->installEventFilter(this);
    QMainWindow::setWindowTitle(QApplication::applicationName() + u"[*]"_s);
    resize(1200, 720);
}

ProjectWindow::~ProjectWindow()
{
    // Hiding commits an open table editor while the project is still there to take it.
    hide();
    qApp->removeEventFilter(this);
    disconnect(qApp, nullptr, this, nullptr);
    m_projectKeys.reset();
    // The playback aids follow the project: they go first.
    delete m_playbackMenu;
    // The table lets go of the rows before the project that holds them goes.
    m_syncingSelection = true;
    m_table->setModel(nullptr);
    // The model follows the project's rows: it goes while the project is still there.
    delete m_model;
    m_model = nullptr;
    m_project->setFixTimeAdjustment({});
    delete m_timeline;
    m_timeline = nullptr;
    // Players stop reporting before the project goes; the project before the players.
    for (const auto &controller : m_controllers)
        controller->setDelegate(nullptr);
    m_movieArea->setPlayerView(nullptr);
    m_project.reset();
    m_controllers.clear();
}

void ProjectWindow::setPlayers(PlaybackControlFactory factory, PlayerViewOf viewOf)
{
    m_playerFactory = std::move(factory);
    m_viewOf = std::move(viewOf);
    m_project->setMovieControllerFactory([this](int kind) -> PlaybackControl * {
        PlaybackControl *controller = m_playerFactory ? m_playerFactory(kind) : nullptr;
        if (controller)
            m_controllers.emplace_back(controller);
        return controller;
    });
}

void ProjectWindow::start()
{
    m_project->windowDidLoad();
    {
        const QSignalBlocker blocker(m_caseSensitiveButton);
        m_caseSensitiveButton->setChecked(m_project->searchCaseSensitive());
    }
    refreshEditorFields();
    refreshStates();
    if (Settings::shared().boolValue(u"ShowTutorial"_s))
        showTutorial();
}

void ProjectWindow::setRecoveryStore(RecoveryStore *store)
{
    m_project->setRecoveryStore(store);
    if (!store || m_autosaveTimer)
        return;
    // Every second: cheap (it compares two numbers) and the interval can change at any time.
    m_autosaveTimer = new QTimer(this);
    m_autosaveTimer->setInterval(1000);
    auto clock = std::make_shared<QElapsedTimer>();
    clock->start();
    connect(m_autosaveTimer, &QTimer::timeout, this, [this, clock] {
        m_project->autosaveTick(clock->elapsed(), CTWindowController::autosaveInterval());
    });
    m_autosaveTimer->start();
    connect(qApp, &QGuiApplication::applicationStateChanged, this, [this](Qt::ApplicationState state) {
        if (state != Qt::ApplicationActive)
            m_project->writeRecoveryCopy();
    });
}

void ProjectWindow::openFiles(const QStringList &paths)
{
    if (!paths.isEmpty())
        m_project->droppedFiles(paths);
}

// --- layout -------------------------------------------------------------------------------------

QWidget *ProjectWindow::buildMovieSide()
{
    auto *side = new QWidget(this);
    auto *layout = new QVBoxLayout(side);
    layout->setContentsMargins(0, 0, 0, 0);
    m_movieArea = new MoviePlaceholder(side);
    layout->addWidget(m_movieArea, 1);

    auto *bar = new QHBoxLayout;
    m_playButton = new QPushButton(tr("Play"), side);
    // Wide enough for either title, whichever is longer in the interface language.
    const QFontMetrics playMetrics = m_playButton->fontMetrics();
    m_playButton->setMaximumWidth(
        std::max(playMetrics.horizontalAdvance(tr("Play")), playMetrics.horizontalAdvance(tr("Pause"))) + 32);
    m_playButton->setAccessibleName(tr("Play or pause"));
    connect(m_playButton, &QPushButton::clicked, this, [this] { runCommand(u"playPause:"_s); });
    bar->addWidget(m_playButton);
    const QStringList stepTitles = {u"−5"_s, u"−1"_s, u"+1"_s, u"+5"_s};
    const QStringList stepCommands = {u"rewind:"_s, u"stepBackward:"_s, u"stepForward:"_s, u"fastForward:"_s};
    const QStringList stepNames = {tr("Five frames back"), tr("One frame back"), tr("One frame forward"),
                                   tr("Five frames forward")};
    for (int i = 0; i < 4; ++i) {
        auto *button = new QPushButton(stepTitles[i], side);
        button->setToolTip(i == 0 || i == 3 ? tr("Five frames") : tr("One frame"));
        button->setAccessibleName(stepNames[i]);
        button->setFocusPolicy(Qt::NoFocus);
        button->setEnabled(false);
        button->setMaximumWidth(button->fontMetrics().horizontalAdvance(u"+5"_s) + 24);
        connect(button, &QPushButton::clicked, this,
                [this, command = stepCommands[i]] { runCommand(command); });
        bar->addWidget(button);
        m_stepButtons << button;
    }
    m_scrubber = new QSlider(Qt::Horizontal, side);
    m_scrubber->setRange(0, 0);
    m_scrubber->setFocusPolicy(Qt::NoFocus);
    m_scrubber->setMinimumWidth(60);
    m_scrubber->setAccessibleName(tr("Playing position"));
    connect(m_scrubber, &QSlider::sliderPressed, this, [this] { m_scrubbing = true; });
    connect(m_scrubber, &QSlider::sliderReleased, this, [this] { m_scrubbing = false; });
    // Dragging or clicking the track seeks, within the limits the fix range sets.
    connect(m_scrubber, &QSlider::actionTriggered, this, [this](int sliderAction) {
        PlaybackControl *player = m_project->movieController();
        if (sliderAction == QAbstractSlider::SliderNoAction || !player)
            return;
        double t = m_scrubber->sliderPosition() / 1000.0;
        const CTWindowController::RangeDisplay &range = m_project->rangeDisplay();
        if (range.scrubberMinimum)
            t = std::max(t, *range.scrubberMinimum);
        if (range.scrubberMaximum)
            t = std::min(t, *range.scrubberMaximum);
        player->setCurrentTime(t);
    });
    // Under the scrubber: the earliest and latest start the current line may be fixed to.
    auto *track = new QVBoxLayout;
    track->setSpacing(0);
    track->addWidget(m_scrubber);
    m_timeView = new CTTimeView(side);
    m_timeView->setToolTip(tr("The times the current line's start may be fixed between"));
    QFont small = m_timeView->font();
    small.setPointSizeF(small.pointSizeF() * 0.85);
    m_timeView->setFont(small);
    track->addWidget(m_timeView);
    bar->addLayout(track, 1);
    m_timeLabel = new QLabel(VHTimeValueTransformer::stringForTime(0), side);
    m_timeLabel->setAccessibleName(tr("Playing time"));
    bar->addWidget(m_timeLabel);
    auto *subtitleToggle = new QToolButton(side);
    subtitleToggle->setText(u"CC"_s);
    subtitleToggle->setToolTip(tr("Show the subtitle over the movie"));
    subtitleToggle->setAccessibleName(tr("Show the subtitle over the movie"));
    subtitleToggle->setCheckable(true);
    subtitleToggle->setChecked(true);
    subtitleToggle->setFocusPolicy(Qt::NoFocus);
    connect(subtitleToggle, &QToolButton::toggled, this, [this](bool on) {
        if (PlaybackControl *player = m_project->movieController())
            player->setShowSubtitle(on);
    });
    bar->addWidget(subtitleToggle);
    auto *fullScreen = new QToolButton(side);
    fullScreen->setText(tr("Full Screen"));
    fullScreen->setFocusPolicy(Qt::NoFocus);
    fullScreen->setObjectName(u"fullScreenButton"_s);
    fullScreen->setAccessibleName(tr("Full Screen"));
    // The movie alone fills the screen; Escape brings it back.
    connect(fullScreen, &QToolButton::clicked, this, [this] {
        if (PlaybackControl *player = m_project->movieController())
            player->toggleFullscreen();
    });
    bar->addWidget(fullScreen);
    layout->addLayout(bar);
    return side;
}

QWidget *ProjectWindow::buildEditorSide()
{
    auto *side = new QWidget(this);
    auto *layout = new QVBoxLayout(side);

    auto *top = new QHBoxLayout;
    m_languageButton = new QToolButton(side);
    m_languageButton->setPopupMode(QToolButton::InstantPopup);
    m_languageButton->setToolButtonStyle(Qt::ToolButtonTextOnly);
    m_languageButton->setMinimumWidth(180);
    // A long language name is cut rather than widening the window.
    m_languageButton->setSizePolicy(QSizePolicy::Ignored, m_languageButton->sizePolicy().verticalPolicy());
    m_languageButton->setAccessibleName(tr("Subtitle language"));
    m_languageMenu = new QMenu(m_languageButton);
    m_languageButton->setMenu(m_languageMenu);
    top->addWidget(m_languageButton, 1);
    m_searchField = new QLineEdit(side);
    m_searchField->setPlaceholderText(tr("Search"));
    m_searchField->setClearButtonEnabled(true);
    m_searchField->setAccessibleName(tr("Search"));
    connect(m_searchField, &QLineEdit::textChanged, this, [this](const QString &text) {
        if (text != m_project->searchString())
            m_project->setSearchString(text);
    });
    top->addWidget(m_searchField, 1);
    auto *caseSensitive = new QToolButton(side);
    caseSensitive->setText(u"Aa"_s);
    caseSensitive->setToolTip(tr("Case-sensitive search"));
    caseSensitive->setAccessibleName(tr("Case-sensitive search"));
    caseSensitive->setCheckable(true);
    caseSensitive->setChecked(m_project->searchCaseSensitive());
    connect(caseSensitive, &QToolButton::toggled, this,
            [this](bool on) { m_project->setSearchCaseSensitive(on); });
    m_caseSensitiveButton = caseSensitive;
    top->addWidget(caseSensitive);
    layout->addLayout(top);

    // Shown while the project's "showReplace" is on.
    m_replaceRow = new QWidget(side);
    auto *replace = new QHBoxLayout(m_replaceRow);
    replace->setContentsMargins(0, 0, 0, 0);
    m_replaceField = new QLineEdit(side);
    m_replaceField->setPlaceholderText(tr("Replace with"));
    m_replaceField->setAccessibleName(tr("Replace with"));
    replace->addWidget(m_replaceField, 1);
    auto *replaceAll = new QPushButton(tr("Replace All"), side);
    replaceAll->setAccessibleName(tr("Replace All"));
    connect(replaceAll, &QPushButton::clicked, this, [this] {
        const qsizetype changed = m_project->replaceAll(m_searchField->text(), m_replaceField->text());
        m_statusBar->showMessage(changed == 0   ? tr("No line changed")
                                 : changed == 1 ? tr("Replaced in 1 line")
                                                : tr("Replaced in %n lines", nullptr, int(changed)),
                                 10000);
    });
    replace->addWidget(replaceAll);
    layout->addWidget(m_replaceRow);
    m_replaceRow->setVisible(m_project->showReplace());

    m_model = new CueTableModel(m_project.get(), this);
    auto *table = new CueTableView(side);
    m_table = table;
    m_table->setModel(m_model);
    m_delegate = new CueItemDelegate(m_table);
    m_table->setItemDelegate(m_delegate);
    table->sizeColumns();
    // A click on the selected line selects nothing new, but goes there again.
    table->onClickSelectedRow = [this](int, Qt::KeyboardModifiers modifiers) {
        m_project->setModifierKeys(modifiers & Qt::AltModifier ? CTWindowController::OptionModifier
                                                               : CTWindowController::NoModifier);
        m_project->seekToCurrentSubtitle();
    };
    connect(m_table->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [this] { tableSelectionChanged(); });
    connect(m_model, &QAbstractItemModel::modelReset, this, [this] { applyProjectSelection(); });
    layout->addWidget(m_table, 1);

    auto *fields = new QHBoxLayout;
    fields->addWidget(new QLabel(tr("Start", "start time of a line"), side));
    m_startField = new QLineEdit(side);
    m_startField->setAccessibleName(tr("Start time of the line"));
    fields->addWidget(m_startField);
    fields->addWidget(new QLabel(tr("Duration"), side));
    m_durationField = new QLineEdit(side);
    m_durationField->setAccessibleName(tr("Duration of the line"));
    fields->addWidget(m_durationField);
    // Both fields show a whole time text ("00:00:00.000") without scrolling.
    for (QLineEdit *field : {m_startField, m_durationField}) {
        const int textWidth = field->fontMetrics().horizontalAdvance(u"00:00:00.0000"_s);
        field->setMinimumWidth(textWidth + 2 * field->style()->pixelMetric(QStyle::PM_DefaultFrameWidth) + 8);
    }
    m_forcedBox = new QCheckBox(tr("Forced"), side);
    m_forcedBox->setAccessibleName(tr("Forced"));
    fields->addWidget(m_forcedBox);
    fields->addStretch(1);
    layout->addLayout(fields);
    m_fixPanel = new FixPanel(side);
    m_fixButton = m_fixPanel->button();
    m_fixPanel->onChooseMode = [this](int mode) {
        m_project->setChosenFixMode(FixMode(mode));
        scheduleRefresh();
    };
    layout->addWidget(m_fixPanel);
    // What a typed start would do shows before it is committed.
    connect(m_startField, &QLineEdit::textEdited, this, [this] { showFix(); });
    connect(m_startField, &QLineEdit::editingFinished, this, [this] {
        if (!m_updatingFields && m_project->currentSubtitle())
            m_project->setStart(VHTimeValueTransformer::timeForString(m_startField->text()));
        m_startField->setModified(false);
        showFix();
    });
    connect(m_durationField, &QLineEdit::editingFinished, this, [this] {
        if (!m_updatingFields && m_project->currentSubtitle())
            m_project->setDuration(VHTimeValueTransformer::timeForString(m_durationField->text()));
    });
    connect(m_forcedBox, &QCheckBox::clicked, this, [this](bool checked) {
        if (!m_updatingFields)
            m_project->setForcedState(checked ? 1 : 0);
    });
    connect(m_fixButton, &QPushButton::clicked, this, [this] { fixButtonClicked(); });
    m_fixButton->onTap = [this] { m_project->fixSubtitleStart(); };
    m_fixButton->onEscape = [this] { m_project->fixButtonGotEscape(); };
    m_fixButton->onResignFocus = [this] { m_project->fixButtonDidResignFirstResponder(); };

    m_textField = new QPlainTextEdit(side);
    m_textField->setMaximumHeight(90);
    m_textField->setAccessibleName(tr("Text of the line"));
    m_textField->setTabChangesFocus(true);
    m_textField->setUndoRedoEnabled(false); // the project undoes the line's edits
    connect(m_textField, &QPlainTextEdit::textChanged, this, [this] {
        const SubtitlePtr &cue = m_project->currentSubtitle();
        const QString text = m_textField->toPlainText();
        if (!m_updatingFields && cue && cue->string() != text)
            m_project->setSubtitleText(text);
    });
    layout->addWidget(m_textField);
    return side;
}

// --- following the project -------------------------------------------------------------------------

void ProjectWindow::observeProject()
{
    m_projectKeys =
        m_project->observeKey(QString(), [this](Observable *, const QString &key, Observable::Change change) {
            if (change == Observable::Change::Did)
                projectKeyChanged(key);
        });
}

void ProjectWindow::projectKeyChanged(const QString &key)
{
    if (key == u"currentTime"_s) {
        const double t = m_project->currentTime();
        if (!m_scrubbing) {
            const QSignalBlocker blocker(m_scrubber);
            m_scrubber->setValue(int(std::lround(t * 1000)));
        }
        m_timeLabel->setText(VHTimeValueTransformer::stringForTime(t));
        m_fixPanel->showTime(*m_project, pendingStart());
        return; // many times a second: nothing else follows the time
    }
    if (key == u"selectionIndices"_s)
        applyProjectSelection();
    if (key == u"start"_s || key == u"duration"_s || key == u"subtitleText"_s || key == u"forced"_s ||
        key == u"forcedState"_s || key == u"currentSubtitle"_s || key == u"selectionIndices"_s)
        refreshEditorFields();
    if (key == u"fixMode"_s)
        showFix();
    if (key == u"showReplace"_s)
        m_replaceRow->setVisible(m_project->showReplace());
    if (key == u"searchPredicate"_s && m_searchField->text() != m_project->searchString()) {
        const QSignalBlocker blocker(m_searchField);
        m_searchField->setText(m_project->searchString());
    }
    scheduleRefresh();
}

void ProjectWindow::scheduleRefresh()
{
    if (m_refreshPending)
        return;
    m_refreshPending = true;
    QTimer::singleShot(0, this, [this] { refreshStates(); });
}

void ProjectWindow::refreshStates()
{
    m_refreshPending = false;
    refreshMenus();
    const bool movie = m_project->hasMovie();
    m_playButton->setEnabled(movie);
    m_scrubber->setEnabled(movie);
    for (QPushButton *button : std::as_const(m_stepButtons))
        button->setEnabled(movie && !m_frameSteps.isEmpty());
    showFix();
    if (m_project->moviePath().isEmpty())
        m_movieArea->setMessage(u"Drop a movie here, or open one with File › Open Movie…\n\n"
                                "Subtitle files beside the movie are found by its name."_s);
    else if (!m_movieArea->playerView())
        m_movieArea->setMessage(u"“%1” cannot be played here, but the subtitles beside it can be "
                                "edited."_s.arg(QFileInfo(m_project->moviePath()).fileName()));
    placeTimeView();
    m_model->refreshRows();
}

std::optional<double> ProjectWindow::pendingStart() const
{
    const SubtitlePtr &cue = m_project->currentSubtitle();
    if (!cue || !m_startField->isModified())
        return std::nullopt;
    const double typed = VHTimeValueTransformer::timeForString(m_startField->text());
    if (!std::isfinite(typed) || std::fabs(typed - cue->start()) < 0.0005)
        return std::nullopt;
    return typed;
}

void ProjectWindow::showFix()
{
    m_fixPanel->showFix(*m_project, pendingStart());
}

void ProjectWindow::placeTimeView()
{
    const CTWindowController::RangeDisplay &range = m_project->rangeDisplay();
    m_timeView->setLeftText(range.startText);
    m_timeView->setRightText(range.endText);
    // The fractions of the movie at the scrubber's places for those times.
    const int handle = m_scrubber->style()->pixelMetric(QStyle::PM_SliderLength, nullptr, m_scrubber);
    const double track = std::max(0, m_scrubber->width() - handle);
    m_timeView->setLeft(handle / 2.0 + range.startFraction * track);
    m_timeView->setRight(handle / 2.0 + range.endFraction * track);
}

void ProjectWindow::setFixBackgroundDuration(double seconds)
{
    m_fixBackgroundDuration = seconds;
    m_fixPanel->background()->setDuration(seconds);
}

void ProjectWindow::showTutorial()
{
    if (m_tutorial)
        return;
    const QAction *fix = action(u"fixSubtitleStart:"_s);
    const QAction *tap = action(u"toggleTap2Sync:"_s);
    m_tutorial = new TutorialOverlay(m_movieArea, fix ? fix->shortcut() : QKeySequence(),
                                     tap ? tap->shortcut() : QKeySequence());
    m_tutorial->show();
}

void ProjectWindow::refreshEditorFields()
{
    m_updatingFields = true;
    const bool current = bool(m_project->currentSubtitle());
    auto setField = [](QLineEdit *field, const QString &text) {
        if (!field->hasFocus() || !field->isModified())
            field->setText(text);
    };
    setField(m_startField, current ? VHTimeValueTransformer::stringForTime(m_project->start()) : QString());
    setField(m_durationField,
             current ? VHTimeValueTransformer::stringForTime(m_project->duration()) : QString());
    const QString text = current ? m_project->subtitleText() : QString();
    if (m_textField->toPlainText() != text)
        m_textField->setPlainText(text);
    m_startField->setEnabled(current);
    m_durationField->setEnabled(current);
    m_textField->setEnabled(current);
    const int forced = m_project->forcedState();
    m_forcedBox->setTristate(forced < 0);
    m_forcedBox->setCheckState(forced < 0 ? Qt::PartiallyChecked : forced ? Qt::Checked : Qt::Unchecked);
    m_forcedBox->setEnabled(m_project->canChangeForced());
    m_updatingFields = false;
}

void ProjectWindow::applyProjectSelection()
{
    // While the rows are being replaced the selection waits for the model's reset signal.
    if (m_syncingSelection || m_model->isResetting())
        return;
    m_syncingSelection = true;
    QItemSelection selection;
    const QList<qsizetype> &rows = m_project->selectionIndices();
    Q_ASSERT(rows.isEmpty() || rows.last() < m_model->rowCount());
    // Runs of rows become one range each, so selecting thousands of rows stays cheap.
    for (qsizetype i = 0; i < rows.size();) {
        qsizetype j = i;
        while (j + 1 < rows.size() && rows[j + 1] == rows[j] + 1)
            ++j;
        selection.select(m_model->index(int(rows[i]), 0),
                         m_model->index(int(rows[j]), CueTableModel::ColumnCount - 1));
        i = j + 1;
    }
    m_table->selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
    if (rows.size() == 1) {
        const QModelIndex index = m_model->index(int(rows.first()), 0);
        m_table->selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
        m_table->scrollTo(index);
    }
    m_syncingSelection = false;
}

void ProjectWindow::tableSelectionChanged()
{
    if (m_syncingSelection)
        return;
    QList<qsizetype> rows;
    const QModelIndexList selected = m_table->selectionModel()->selectedRows();
    rows.reserve(selected.size());
    for (const QModelIndex &index : selected)
        rows << index.row();
    // Option-click (Alt here) selects without seeking, as the project decides.
    const Qt::KeyboardModifiers modifiers = QApplication::keyboardModifiers();
    m_project->setModifierKeys((modifiers & Qt::ShiftModifier ? CTWindowController::ShiftModifier : 0) |
                               (modifiers & Qt::AltModifier ? CTWindowController::OptionModifier : 0));
    m_syncingSelection = true;
    m_project->setSelectionIndices(rows);
    m_syncingSelection = false;
}

// --- ProjectView: window, sheets, panels ------------------------------------------------------------

void ProjectWindow::setWindowTitle(const QString &title)
{
    QMainWindow::setWindowTitle(title + u"[*]"_s);
}

void ProjectWindow::setDocumentEdited(bool edited)
{
    setWindowModified(edited);
}

void ProjectWindow::makeKeyAndOrderFront()
{
    show();
    raise();
    activateWindow();
}

QList<Sheet> ProjectWindow::attachedSheets() const
{
    QList<Sheet> sheets;
    for (const auto &[sheet, dialog] : m_sheets)
        sheets << sheet;
    return sheets;
}

void ProjectWindow::beginSheet(const Sheet &sheet)
{
    QDialog *dialog = makeSheetDialog(sheet);
    if (!dialog) {
        logLine(u"Warning: No window for the sheet \"%1\""_s.arg(sheet.kind));
        // Ended after this call returns, so that the project sees a sheet begin and end.
        QTimer::singleShot(0, this, [this, sheet] { m_project->didEndSheet(sheet, 0); });
        return;
    }
    dialog->setWindowModality(Qt::WindowModal);
    m_sheets.append({sheet, dialog});
    connect(dialog, &QDialog::finished, this, [this, sheet, dialog](int code) {
        for (qsizetype i = 0; i < m_sheets.size(); ++i) {
            if (m_sheets[i].second == dialog) {
                m_sheets.removeAt(i);
                break;
            }
        }
        dialog->deleteLater();
        m_project->didEndSheet(sheet, code);
        scheduleRefresh();
    });
    dialog->open();
    scheduleRefresh();
}

void ProjectWindow::endSheet(const Sheet &sheet, int returnCode)
{
    for (const auto &[attached, dialog] : std::as_const(m_sheets)) {
        if (attached == sheet && dialog) {
            dialog->done(returnCode); // reports through finished()
            return;
        }
    }
}

void ProjectWindow::beginEditingText(qsizetype row)
{
    const QModelIndex index = m_model->index(int(row), CueTableModel::TextColumn);
    if (!index.isValid())
        return;
    // The view opens no editor while another one is open.
    commitOpenEditor();
    m_table->scrollTo(index);
    // Only the cell becomes current. The row is selected already, and a selecting move would
    // toggle it off again while Control (of Ctrl+I) is held.
    m_table->selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
    m_delegate->lastEditor = nullptr;
    m_table->edit(index);
    // Typing replaces the text: the editor has the focus with all of its text selected.
    if (auto *editor = qobject_cast<QLineEdit *>(m_delegate->lastEditor.data())) {
        editor->setFocus(Qt::OtherFocusReason);
        editor->selectAll();
    }
}

void ProjectWindow::commitOpenEditor()
{
    if (QWidget *editor = m_delegate->lastEditor) {
        m_delegate->lastEditor = nullptr;
        Q_EMIT m_delegate->commitData(editor);
        Q_EMIT m_delegate->closeEditor(editor, QAbstractItemDelegate::NoHint);
    }
}

// --- ProjectView: the movie ------------------------------------------------------------------------

void ProjectWindow::attachMovieController(PlaybackControl *controller)
{
    m_movieArea->setPlayerView(m_viewOf ? m_viewOf(controller) : nullptr);
}

void ProjectWindow::detachMovieController(PlaybackControl *controller)
{
    if (m_viewOf && m_movieArea->playerView() == m_viewOf(controller))
        m_movieArea->setPlayerView(nullptr);
    // This may run inside one of the controller's own calls: it goes after they return.
    QTimer::singleShot(0, this, [this, controller] { releaseController(controller); });
}

void ProjectWindow::releaseController(PlaybackControl *controller)
{
    if (controller == m_project->movieController())
        return; // taken back meanwhile
    std::erase_if(m_controllers, [controller](const auto &owned) { return owned.get() == controller; });
}

void ProjectWindow::setPlayerViewVisible(bool visible)
{
    m_movieArea->setPlayerViewVisible(visible);
}

void ProjectWindow::setBackgroundImageVisible(bool visible)
{
    // Without a player (none linked, or none could be made) there is no picture to uncover.
    m_movieArea->setBackgroundVisible(visible || !m_movieArea->playerView());
}

void ProjectWindow::setMovieAspectRatio(double ratio)
{
    m_movieArea->setAspectRatio(ratio);
}

void ProjectWindow::setAudioMenuItems(const QList<AudioTrackItem> &items)
{
    m_audioMenu->clear();
    for (qsizetype i = 0; i < items.size(); ++i) {
        QAction *item = m_audioMenu->addAction(items[i].title);
        item->setCheckable(items[i].tag >= 0);
        item->setChecked(items[i].checked);
        item->setEnabled(items[i].tag >= 0);
        connect(item, &QAction::triggered, this, [this, i] { m_project->setActiveTrack(int(i)); });
    }
}

void ProjectWindow::setScrubberRange(double minimum, double maximum)
{
    const QSignalBlocker blocker(m_scrubber);
    m_scrubber->setRange(int(std::lround(minimum * 1000)), int(std::lround(maximum * 1000)));
}

void ProjectWindow::setFrameStepAmounts(const QList<double> &seconds)
{
    m_frameSteps = seconds;
    scheduleRefresh();
}

void ProjectWindow::setPlayButtonTitle(const QString &title)
{
    m_playButton->setText(title);
    if (QAction *item = action(u"playPause:"_s)) {
        item->setText(title);
        item->setProperty("baseTitle", title);
    }
}

// --- events ----------------------------------------------------------------------------------------

void ProjectWindow::closeEvent(QCloseEvent *event)
{
    if (!m_project || m_terminating) {
        event->accept();
    } else if (m_terminationHandler) {
        // Closing the one window quits: asked after this event, whose answer is "not yet".
        event->ignore();
        QTimer::singleShot(0, this, [this] { m_terminationHandler(); });
    } else if (m_project->windowShouldClose()) {
        event->accept();
    } else {
        event->ignore();
    }
}

void ProjectWindow::terminateNow()
{
    m_project->applicationWillTerminate();
    m_terminating = true;
    close();
    QCoreApplication::quit();
}

void ProjectWindow::dragEnterEvent(QDragEnterEvent *event)
{
    const QList<QUrl> urls = event->mimeData()->urls();
    if (std::any_of(urls.cbegin(), urls.cend(), [](const QUrl &url) { return url.isLocalFile(); }))
        event->acceptProposedAction();
}

void ProjectWindow::dropEvent(QDropEvent *event)
{
    QStringList paths;
    const QList<QUrl> urls = event->mimeData()->urls();
    for (const QUrl &url : urls) {
        if (url.isLocalFile())
            paths << url.toLocalFile();
    }
    event->acceptProposedAction(); // a drop is always taken
    openFiles(paths);
}
