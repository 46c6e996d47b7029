#pragma once

#include <QCoreApplication>
#include <QWidget>

#include <functional>
#include <optional>

class CTFixButton;
class CTFixButtonBackground;
class CTFixPreview;
class CTWindowController;
class QButtonGroup;
class QLabel;
class QToolButton;

// Everything around the fix control: the control on its dial, the preview strip, the mode
// chooser (Fix, Shift, Single, also chosen by holding Shift or Alt) and a line saying what the
// next fix will do. It shows the project's fix as it stands, or the fix a start typed into the
// editor would make before it is committed.
class FixPanel final : public QWidget
{
    Q_DECLARE_TR_FUNCTIONS(FixPanel)

public:
    explicit FixPanel(QWidget *parent = nullptr);

    CTFixButton *button() const { return m_button; }
    CTFixButtonBackground *background() const { return m_background; }
    CTFixPreview *preview() const { return m_preview; }
    QToolButton *modeButton(int mode) const;
    QLabel *modeLabel() const { return m_modeLabel; }
    QLabel *detailLabel() const { return m_detailLabel; }

    // The user picked a mode on the chooser (1 Fix, 2 Shift, 3 Single).
    std::function<void(int mode)> onChooseMode;

    // The mode, the run and its anchors changed: everything is shown again. `pendingStart` is
    // a start typed into the editor and not yet committed.
    void showFix(const CTWindowController &project, std::optional<double> pendingStart);
    // The playing time moved: only what follows it.
    void showTime(const CTWindowController &project, std::optional<double> pendingStart);

    // What the next fix does, in a few words.
    static QString describe(int mode, qsizetype lines, double shift, bool allowed);
    // The mode's name as the control and the chooser show it.
    static QString modeName(int mode);

private:
    // Where the current line would go: the typed start, or the playing time (less the
    // reaction time in Tap2Sync).
    static double newTime(const CTWindowController &project, std::optional<double> pendingStart);
    static bool allowed(const CTWindowController &project, std::optional<double> pendingStart);
    void showText(const CTWindowController &project, std::optional<double> pendingStart);

    CTFixButtonBackground *m_background = nullptr;
    CTFixButton *m_button = nullptr;
    CTFixPreview *m_preview = nullptr;
    QButtonGroup *m_modes = nullptr;
    QLabel *m_modeLabel = nullptr;
    QLabel *m_detailLabel = nullptr;
};
