#include "HelpWindows.h"

#include "FFmpegVersion.h"
#include "LocaleNames.h"
#include "PlayerLibraries.h"

#include <QAction>
#include <QApplication>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>
#include <QTreeWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {
QString plainTitle(QString title)
{
    // "&File" → "File"; "&&" stays one "&".
    title.replace(u"&&"_s, u"\x01"_s).remove(u'&').replace(u'\x01', u'&');
    return title;
}

void collect(const QMenu *menu, const QString &group, QList<ShortcutSheet::Row> &rows)
{
    for (const QAction *item : menu->actions()) {
        if (item->isSeparator())
            continue;
        if (const QMenu *submenu = item->menu()) {
            collect(submenu, group + u" › "_s + plainTitle(submenu->title()), rows);
            continue;
        }
        QList<QKeySequence> keys = item->shortcuts();
        // Keys a command gives up for a while (the arrow keys while text is typed) are still
        // its keys.
        const QVariant suspended = item->property("suspendedShortcut");
        if (keys.isEmpty() && suspended.isValid())
            keys << suspended.value<QKeySequence>();
        if (keys.isEmpty())
            continue;
        QStringList texts;
        for (const QKeySequence &key : std::as_const(keys))
            texts << key.toString(QKeySequence::NativeText);
        rows.append({group, plainTitle(item->text()),
                     texts.join(QCoreApplication::translate("ShortcutSheet", " or ", "between two keys"))});
    }
}
} // namespace

QList<ShortcutSheet::Row> ShortcutSheet::rows(const QMenuBar *menus)
{
    QList<Row> rows;
    for (const QAction *item : menus->actions()) {
        if (const QMenu *menu = item->menu())
            collect(menu, plainTitle(menu->title()), rows);
    }
    // Keys the window and the fix control take themselves.
    const QString group = tr("Without a menu item");
    auto key = [](QKeyCombination combination) {
        return QKeySequence(combination).toString(QKeySequence::NativeText);
    };
    rows.append({group, tr("Hold for the fix mode Shift (the lines move by as much)"), key(Qt::Key_Shift)});
    rows.append({group, tr("Hold for the fix mode Single (only the current line moves)"), key(Qt::Key_Alt)});
    rows.append({group, tr("In Tap2Sync: fix the current line as it begins"), key(Qt::Key_Space)});
    rows.append({group, tr("Leave Tap2Sync, or leave full screen"), key(Qt::Key_Escape)});
    rows.append({group, tr("Edit the selected line's cell"), key(Qt::Key_F2)});
    return rows;
}

ShortcutSheet::ShortcutSheet(const QMenuBar *menus, QWidget *parent)
    : QDialog(parent)
{
    setWindowTitle(tr("Keyboard Shortcuts"));
    auto *layout = new QVBoxLayout(this);
    m_list = new QTreeWidget(this);
    m_list->setAccessibleName(tr("Keyboard shortcuts"));
    m_list->setColumnCount(2);
    m_list->setHeaderLabels({tr("Command"), tr("Key")});
    m_list->setRootIsDecorated(false);
    m_list->setSelectionMode(QAbstractItemView::NoSelection);
    QTreeWidgetItem *group = nullptr;
    for (const Row &row : rows(menus)) {
        if (!group || group->text(0) != row.group) {
            group = new QTreeWidgetItem(m_list, {row.group});
            QFont bold = group->font(0);
            bold.setBold(true);
            group->setFont(0, bold);
            group->setFirstColumnSpanned(true);
            group->setExpanded(true);
        }
        new QTreeWidgetItem(group, {row.command, row.keys});
    }
    m_list->expandAll();
    m_list->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    m_list->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    m_list->header()->setStretchLastSection(false);
    layout->addWidget(m_list);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout->addWidget(buttons);
    resize(560, 640);
}

QList<AboutBox::Library> AboutBox::libraries()
{
    return {
        {u"Qt"_s, QString::fromLatin1(qVersion())},
        {u"FFmpeg"_s, ffmpegVersion()},
        {u"libmpv"_s, mpvVersion()},
        {u"libVLC"_s, vlcVersion()},
        {u"ICU"_s, LocaleNames::icuVersion()},
    };
}

QString AboutBox::text()
{
    QString rows;
    for (const Library &library : libraries())
        rows += u"<tr><td>%1</td><td>%2</td></tr>"_s.arg(library.name.toHtmlEscaped(),
                                                         library.version.toHtmlEscaped());
    const QString version = QApplication::applicationVersion();
    return QCoreApplication::translate("AboutBox",
                                       "<b>%1 %2</b><p>A subtitle editor for fixing subtitle timing "
                                       "against a movie.</p>")
               .arg(QApplication::applicationDisplayName().toHtmlEscaped(), version.toHtmlEscaped()) +
           u"<p>"_s + QCoreApplication::translate("AboutBox", "Running with:") + u"</p><table>"_s + rows +
           u"</table>"_s;
}
