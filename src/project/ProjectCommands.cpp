// The project's commands by name, each with the rule that titles and enables its menu item.
// The window's table of commands (src/app) says what each one does; the names are shared with
// the language pop-up and the command line.
#include "CTWindowController.h"
#include "ProjectView.h"

#include <QHash>

using namespace Qt::StringLiterals;

namespace {
using MenuState = CTWindowController::MenuState;
using Rule = MenuState (*)(const CTWindowController &);

// Commands that need a movie and nothing else.
MenuState needsMovie(const CTWindowController &p)
{
    return {p.hasMovie(), std::nullopt, false};
}

// Commands that need an open project (a movie or a subtitle file named).
MenuState needsProject(const CTWindowController &p)
{
    return {!p.basePath().isEmpty(), std::nullopt, false};
}

QString countedTitle(bool chapters, int count)
{
    if (chapters)
        return count == 1 ? CTWindowController::tr("Delete Chapter Mark")
                          : CTWindowController::tr("Delete %n Chapter Marks", nullptr, count);
    return count == 1 ? CTWindowController::tr("Delete Subtitle Line")
                      : CTWindowController::tr("Delete %n Subtitle Lines", nullptr, count);
}

MenuState extractTitle(const CTWindowController &p)
{
    MenuState state;
    const int count = p.extractableSubtitleCount();
    const bool chapters = p.hasExtractableChapters();
    if (count > 0) {
        if (chapters)
            state.title =
                count == 1 ? CTWindowController::tr("Extract 1 Subtitle and Chapter Marks")
                           : CTWindowController::tr("Extract %n Subtitles and Chapter Marks", nullptr, count);
        else
            state.title = count == 1 ? CTWindowController::tr("Extract 1 Subtitle")
                                     : CTWindowController::tr("Extract %n Subtitles", nullptr, count);
    } else {
        state.title = chapters ? CTWindowController::tr("Extract Chapter Marks")
                               : CTWindowController::tr("No Extractable Subtitle or Chapter Marks");
    }
    state.enabled = count > 0 || chapters;
    return state;
}

const QHash<QString, Rule> &rules()
{
    static const QHash<QString, Rule> table = {
        {u"undo:"_s,
         [](const CTWindowController &p) {
             return MenuState{p.editor().canUndo(), p.editor().undoTitle(), false};
         }},
        {u"redo:"_s,
         [](const CTWindowController &p) {
             return MenuState{p.editor().canRedo(), p.editor().redoTitle(), false};
         }},
        {u"extractAllSubtitles:"_s, extractTitle},
        {u"reloadSubtitle:"_s,
         [](const CTWindowController &p) {
             return MenuState{!p.basePath().isEmpty(),
                              p.isChaptermark() ? CTWindowController::tr("Reload Chapter Marks")
                                                : CTWindowController::tr("Reload Subtitle"),
                              false};
         }},
        {u"saveSubtitle:"_s,
         [](const CTWindowController &p) {
             return MenuState{!p.basePath().isEmpty(),
                              p.isChaptermark() ? CTWindowController::tr("Save Chapter Marks")
                                                : CTWindowController::tr("Save Subtitle"),
                              false};
         }},
        {u"exportSubtitle:"_s,
         [](const CTWindowController &p) {
             return MenuState{!p.basePath().isEmpty() && !p.subtitles().isEmpty(), std::nullopt, false};
         }},
        {u"embedSubtitle:"_s, needsMovie},
        {u"shouldCloseProject:"_s, needsProject},
        {u"fixSubtitleStart:"_s,
         [](const CTWindowController &p) {
             return MenuState{p.canFix(), std::nullopt, false};
         }},
        {u"fixSingleSubtitleStart:"_s,
         [](const CTWindowController &p) {
             return MenuState{p.canFix(),
                              p.isChaptermark() ? CTWindowController::tr("Fix Single Chapter Mark Time")
                                                : CTWindowController::tr("Fix Single Subtitle Line Time"),
                              false};
         }},
        {u"shiftSubtitles:"_s,
         [](const CTWindowController &p) {
             return MenuState{p.hasMovie() && p.currentSubtitle() && p.fixController().canShift(),
                              std::nullopt, false};
         }},
        {u"deleteSubtitle:"_s,
         [](const CTWindowController &p) {
             return MenuState{!p.selectionIndices().isEmpty(),
                              countedTitle(p.isChaptermark(), int(p.selectionIndices().size())), false};
         }},
        {u"addSubtitle:"_s,
         [](const CTWindowController &p) {
             return MenuState{!p.basePath().isEmpty(),
                              p.isChaptermark() ? CTWindowController::tr("Add Chapter Mark")
                                                : CTWindowController::tr("Add Subtitle Line"),
                              false};
         }},
        {u"toggleTap2Sync:"_s,
         [](const CTWindowController &p) {
             const bool tapping = p.fixMode() == FixMode::Tap2Sync;
             return MenuState{p.hasMovie(),
                              tapping ? CTWindowController::tr("Exit \"Tap2Sync\" Mode")
                                      : CTWindowController::tr("Enter \"Tap2Sync\" Mode"),
                              tapping};
         }},
        {u"convertChapterMarkToSubtitle:"_s,
         [](const CTWindowController &p) {
             return MenuState{p.isChaptermark(), std::nullopt, false};
         }},
        {u"scrub:"_s, needsMovie},
        {u"playPause:"_s, needsMovie},
        {u"stepForward:"_s, needsMovie},
        {u"stepBackward:"_s, needsMovie},
        {u"rewind:"_s, needsMovie},
        {u"fastForward:"_s, needsMovie},
    };
    return table;
}
} // namespace

CTWindowController::MenuState CTWindowController::validateMenuItem(const QString &command,
                                                                   std::optional<bool> inChapterMenu) const
{
    // Nothing runs while a sheet waits for the user, and the items of the other kind of file
    // (subtitles or chapter marks) are off.
    if ((m_view && m_view->hasAttachedSheet()) || (inChapterMenu && *inChapterMenu != m_isChaptermark))
        return {false, std::nullopt, false};
    if (const Rule rule = rules().value(command))
        return rule(*this);
    return {};
}
