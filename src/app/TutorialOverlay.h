#pragma once

#include <QCoreApplication>
#include <QFrame>

class QCheckBox;
class QPushButton;

// The first-run tutorial: the three things to know, laid over the movie area until the user
// closes it. Shown when the window opens while "ShowTutorial" is set; its box turns that off.
class TutorialOverlay final : public QFrame
{
    Q_DECLARE_TR_FUNCTIONS(TutorialOverlay)

public:
    // `area` is the widget it lies over and follows in size; `fixKey` the key that fixes a start.
    TutorialOverlay(QWidget *area, const QKeySequence &fixKey, const QKeySequence &tapKey);

    QCheckBox *dontShowBox() const { return m_dontShow; }
    QPushButton *closeButton() const { return m_close; }
    // Closes it; with the box ticked "ShowTutorial" is turned off.
    void dismiss();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void place();

    QCheckBox *m_dontShow = nullptr;
    QPushButton *m_close = nullptr;
};
