#pragma once

#include <QMap>
#include <QString>
#include <QStringList>

#include <optional>

// The search engines of the web search window: titles with address templates, and the order
// of the pop-up, in which entries beginning with "-" are section headings.
struct EngineList
{
    QMap<QString, QString> engines; // title -> address template with one "%s"
    QStringList order;
};

namespace WebSearchEngines {

// An engine list property list: a dictionary with "Engines" (title -> template) and
// optionally "Order" (titles and "-Section" entries), or a plain dictionary of title ->
// template ordered by title. Anything else is refused with the reason.
std::optional<EngineList> fromPropertyList(const QVariant &root, QString *error);
std::optional<EngineList> readFile(const QString &path, QString *error);

// The user's own engines: $XDG_DATA_HOME/captora/<fileName> (~/.local/share by default).
QString userEngineFile(const QString &fileName);

// The shipped engines followed by the user's under their own section heading. A title the
// user defines replaces the shipped engine of that title, which leaves its old place.
EngineList withUserEngines(EngineList shipped, const EngineList &user, const QString &sectionTitle);

// The term percent-encoded with the characters allowed in a URL query left as they are.
QString encodedSearchTerm(const QString &term);
// The address to load: the template with its first "%s" replaced by the encoded term (a
// template without one stays as it is); empty when the template or the term is empty.
QString searchAddress(const QString &addressTemplate, const QString &term);

// What to search for a movie: the file name of its path without extension (the project's
// base path), with the dots and underscores that stand for spaces in such names as spaces.
QString searchTermForPath(const QString &basePath);

} // namespace WebSearchEngines
