#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <QVariant>

class PlaybackControl;
struct AudioTrackItem;

// A sheet waiting for, or shown on, the project window. `kind` names what the window shows
// ("FixDuration", "EmbedOptions", "WebSearch", ...); `context` travels with it and comes back
// when the sheet ends.
struct Sheet
{
    QString kind;
    QVariant context;
    bool operator==(const Sheet &other) const { return kind == other.kind && context == other.context; }
};

// One item of the language pop-up as the window shows it.
struct LanguageButtonItem
{
    QString title; // unique within the button ("~" appended where needed)
    bool separator = false;
    bool submenu = false;
};

struct SavePanelOptions
{
    QStringList allowedTypes; // extensions without the dot
    QString directory;        // where the panel opens
    QString nameFieldValue;   // the name it proposes
    // Export: the panel carries the format, encoding and line-break choices; the window
    // writes the user's choices back here before answering.
    bool exportAccessory = false;
    int exportType = 0; // 1 = WebVTT, otherwise SubRip
    quint32 exportEncoding = 0;
    bool windowsLineBreaks = false;
};

// What the project does to its window. The project holds the rules; the window only shows
// state and forwards actions. The desktop window implements this with Qt widgets; tests with
// a recording fake that answers panels from a script.
class ProjectView
{
public:
    virtual ~ProjectView();

    virtual void setWindowTitle(const QString &title) = 0;
    virtual void setDocumentEdited(bool edited) = 0;
    virtual bool isWindowVisible() const = 0;
    virtual void makeKeyAndOrderFront() = 0;

    // One sheet at a time. When a sheet ends (by the user or by endSheet()), the window
    // calls CTWindowController::didEndSheet() with it.
    virtual bool hasAttachedSheet() const = 0;
    virtual void beginSheet(const Sheet &sheet) = 0;
    virtual void endSheet(const Sheet &sheet, int returnCode) = 0;
    virtual QList<Sheet> attachedSheets() const = 0;

    // Panels, modal for the window. A null string means the user cancelled.
    virtual QString runOpenPanel(const QStringList &allowedTypes, bool chooseFolders,
                                 const QString &directory) = 0;
    virtual QString runSavePanel(SavePanelOptions &options) = 0;

    virtual void setLanguageButton(const QList<LanguageButtonItem> &items, qsizetype selectedIndex) = 0;

    // Starts editing the text column of a table row, with its text selected.
    virtual void beginEditingText(qsizetype row) = 0;

    // Tap2Sync hands the space bar from the play button to the fix control and back.
    virtual void setPlayButtonKeyEquivalent(const QString &key) { Q_UNUSED(key); }
    virtual void makeFixControlFirstResponder() {}
    virtual void makePlayButtonFirstResponder() {}
    virtual void setPlayButtonTitle(const QString &title) { Q_UNUSED(title); }

    // --- the movie area ----------------------------------------------------------------
    // A controller the project starts using: the window shows its picture in the movie area.
    virtual void attachMovieController(PlaybackControl *controller) { Q_UNUSED(controller); }
    // The project is done with a controller (its movie is unloaded, its delegate cleared): the
    // window removes its picture and may destroy it, but only after the current call returns,
    // since this can happen inside one of the controller's own delegate calls.
    virtual void detachMovieController(PlaybackControl *controller) { Q_UNUSED(controller); }
    virtual void setPlayerViewVisible(bool visible) { Q_UNUSED(visible); }
    // The picture shown while no movie plays.
    virtual void setBackgroundImageVisible(bool visible) { Q_UNUSED(visible); }
    // Width ÷ height the movie area keeps.
    virtual void setMovieAspectRatio(double ratio) { Q_UNUSED(ratio); }
    // The audio-track menu; a movie that could not be opened leaves one item, "No Audio Track".
    virtual void setAudioMenuItems(const QList<AudioTrackItem> &items) { Q_UNUSED(items); }
    virtual void setScrubberRange(double minimum, double maximum)
    {
        Q_UNUSED(minimum);
        Q_UNUSED(maximum);
    }
    // Seconds the −5, −1, +1 and +5 frame buttons move by; empty: frame stepping is off.
    virtual void setFrameStepAmounts(const QList<double> &seconds) { Q_UNUSED(seconds); }
    // The movie's length, for the dial behind the fix control.
    virtual void setFixBackgroundDuration(double seconds) { Q_UNUSED(seconds); }
    // The arrow keys step frames unless a text editor has the focus.
    virtual void setArrowKeyEquivalentsEnabled(bool enabled) { Q_UNUSED(enabled); }
};
