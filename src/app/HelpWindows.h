#pragma once

#include <QCoreApplication>
#include <QDialog>
#include <QList>
#include <QString>

class QMenuBar;
class QTreeWidget;

// Help › Keyboard Shortcuts: every key of the window, read from the menus' items when the
// sheet opens (so it lists what the keys do now, titles included), followed by the keys that
// work without a menu item.
class ShortcutSheet final : public QDialog
{
    Q_DECLARE_TR_FUNCTIONS(ShortcutSheet)

public:
    struct Row
    {
        QString group;   // the menu, or "Without a menu item"
        QString command; // the item's title
        QString keys;    // every key of the item, in the desktop's notation
    };
    // The rows for the menus of a menu bar, menu by menu and submenus included.
    static QList<Row> rows(const QMenuBar *menus);

    ShortcutSheet(const QMenuBar *menus, QWidget *parent);
    QTreeWidget *list() const { return m_list; }

private:
    QTreeWidget *m_list;
};

// Help › About: the program's version and the versions of the libraries it runs with
// (asked at run time, so a library updated by the system shows its own version).
namespace AboutBox {
struct Library
{
    QString name, version;
};
QList<Library> libraries();
// The text of the About box: title, version, what the program does and the libraries.
QString text();
} // namespace AboutBox
