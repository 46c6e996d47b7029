#include "WebSearchEngines.h"

#include "PropertyList.h"

#include <QStandardPaths>
#include <QUrl>
#include <QVariant>

#include <algorithm>

using namespace Qt::StringLiterals;

std::optional<EngineList> WebSearchEngines::fromPropertyList(const QVariant &root, QString *error)
{
    const auto fail = [error](const QString &why) {
        if (error)
            *error = why;
        return std::nullopt;
    };
    if (root.typeId() != QMetaType::QVariantMap)
        return fail(u"the file holds no dictionary"_s);
    const QVariantMap dictionary = root.toMap();
    const bool structured = dictionary.contains(u"Engines"_s);
    if (structured && dictionary.value(u"Engines"_s).typeId() != QMetaType::QVariantMap)
        return fail(u"\"Engines\" is not a dictionary"_s);
    const QVariantMap engines = structured ? dictionary.value(u"Engines"_s).toMap() : dictionary;
    EngineList list;
    for (auto it = engines.cbegin(); it != engines.cend(); ++it) {
        if (it.value().typeId() != QMetaType::QString)
            return fail(u"the address of \"%1\" is not a string"_s.arg(it.key()));
        list.engines.insert(it.key(), it.value().toString());
    }
    if (structured && dictionary.contains(u"Order"_s)) {
        const QVariant order = dictionary.value(u"Order"_s);
        if (order.typeId() != QMetaType::QVariantList)
            return fail(u"\"Order\" is not an array"_s);
        for (const QVariant &entry : order.toList()) {
            if (entry.typeId() != QMetaType::QString)
                return fail(u"\"Order\" holds an entry that is not a string"_s);
            list.order << entry.toString();
        }
    } else {
        // Without an order the pop-up lists the titles in ascending order.
        list.order = list.engines.keys();
        std::sort(list.order.begin(), list.order.end());
    }
    return list;
}

std::optional<EngineList> WebSearchEngines::readFile(const QString &path, QString *error)
{
    QString readError;
    const QVariant root = PropertyList::readFile(path, &readError);
    if (!root.isValid()) {
        if (error)
            *error = readError;
        return std::nullopt;
    }
    return fromPropertyList(root, error);
}

QString WebSearchEngines::userEngineFile(const QString &fileName)
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + u"/captora/"_s + fileName;
}

EngineList WebSearchEngines::withUserEngines(EngineList shipped, const EngineList &user,
                                             const QString &sectionTitle)
{
    if (user.order.isEmpty() && user.engines.isEmpty())
        return shipped;
    for (auto it = user.engines.cbegin(); it != user.engines.cend(); ++it) {
        if (shipped.engines.contains(it.key()))
            shipped.order.removeAll(it.key());
        shipped.engines.insert(it.key(), it.value());
    }
    shipped.order << u"-"_s + sectionTitle;
    shipped.order << user.order;
    return shipped;
}

QString WebSearchEngines::encodedSearchTerm(const QString &term)
{
    // The characters a URL query may hold as they are, besides letters and digits.
    return QString::fromLatin1(QUrl::toPercentEncoding(term, "!$&'()*+,-./:;=?@_~"));
}

QString WebSearchEngines::searchAddress(const QString &addressTemplate, const QString &term)
{
    const QString encoded = encodedSearchTerm(term);
    if (addressTemplate.isEmpty() || encoded.isEmpty())
        return {};
    QString address = addressTemplate;
    const qsizetype at = address.indexOf(u"%s"_s);
    if (at >= 0)
        address.replace(at, 2, encoded);
    return address;
}

QString WebSearchEngines::searchTermForPath(const QString &basePath)
{
    QString name = basePath.section(u'/', -1);
    name.replace(u'.', u' ').replace(u'_', u' ');
    return name.simplified();
}
