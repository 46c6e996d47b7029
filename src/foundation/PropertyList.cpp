#include "PropertyList.h"

#include "AtomicFile.h"
#include "RegularFile.h"

#include <QDateTime>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

using namespace Qt::StringLiterals;

namespace PropertyList {

namespace {
// Reads the value whose start element the reader is on; leaves it after the end element.
// `depth` counts the containers around it.
QVariant readValue(QXmlStreamReader &xml, int depth)
{
    const QStringView name = xml.name();
    if ((name == u"dict" || name == u"array") && depth >= MaxDepth) {
        xml.raiseError(u"containers are nested more than %1 levels deep"_s.arg(MaxDepth));
        return {};
    }
    if (name == u"dict") {
        QVariantMap map;
        while (xml.readNextStartElement()) {
            if (xml.name() != u"key") {
                xml.raiseError(u"expected <key> in <dict>"_s);
                return {};
            }
            const QString key = xml.readElementText();
            if (!xml.readNextStartElement()) {
                xml.raiseError(u"<key> %1 has no value"_s.arg(key));
                return {};
            }
            map.insert(key, readValue(xml, depth + 1));
            if (xml.hasError())
                return {};
        }
        return map;
    }
    if (name == u"array") {
        QVariantList list;
        while (xml.readNextStartElement()) {
            list.append(readValue(xml, depth + 1));
            if (xml.hasError())
                return {};
        }
        return list;
    }
    if (name == u"string")
        return xml.readElementText();
    if (name == u"integer")
        return xml.readElementText().trimmed().toLongLong();
    if (name == u"real")
        return xml.readElementText().trimmed().toDouble();
    if (name == u"true" || name == u"false") {
        const bool value = name == u"true";
        xml.skipCurrentElement();
        return value;
    }
    if (name == u"data")
        return QByteArray::fromBase64(xml.readElementText().toLatin1());
    if (name == u"date")
        return QDateTime::fromString(xml.readElementText().trimmed(), Qt::ISODate);
    xml.raiseError(u"unknown element <%1>"_s.arg(name));
    return {};
}

void writeValue(QXmlStreamWriter &xml, const QVariant &value)
{
    switch (value.typeId()) {
    case QMetaType::QVariantMap: {
        xml.writeStartElement(u"dict"_s);
        const QVariantMap map = value.toMap();
        for (auto it = map.cbegin(); it != map.cend(); ++it) {
            xml.writeTextElement(u"key"_s, it.key());
            writeValue(xml, it.value());
        }
        xml.writeEndElement();
        break;
    }
    case QMetaType::QVariantList:
    case QMetaType::QStringList: {
        xml.writeStartElement(u"array"_s);
        const QVariantList list = value.toList();
        for (const QVariant &item : list)
            writeValue(xml, item);
        xml.writeEndElement();
        break;
    }
    case QMetaType::Bool:
        xml.writeEmptyElement(value.toBool() ? u"true"_s : u"false"_s);
        break;
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
        xml.writeTextElement(u"integer"_s, QString::number(value.toLongLong()));
        break;
    case QMetaType::Double:
    case QMetaType::Float:
        xml.writeTextElement(u"real"_s, QString::number(value.toDouble(), 'g', 17));
        break;
    case QMetaType::QByteArray:
        xml.writeTextElement(u"data"_s, QString::fromLatin1(value.toByteArray().toBase64()));
        break;
    case QMetaType::QDateTime:
        xml.writeTextElement(u"date"_s, value.toDateTime().toUTC().toString(Qt::ISODate));
        break;
    default:
        xml.writeTextElement(u"string"_s, value.toString());
    }
}
} // namespace

QVariant fromXml(const QByteArray &bytes, QString *error)
{
    QXmlStreamReader xml(bytes);
    QVariant root;
    if (xml.readNextStartElement()) {
        if (xml.name() != u"plist")
            xml.raiseError(u"the root element is not <plist>"_s);
        else if (xml.readNextStartElement())
            root = readValue(xml, 0);
    }
    if (!xml.hasError() && !root.isValid())
        xml.raiseError(u"the property list is empty"_s);
    if (xml.hasError()) {
        if (error)
            *error = u"%1 (line %2)"_s.arg(xml.errorString(), QString::number(xml.lineNumber()));
        return {};
    }
    return root;
}

QVariant readFile(const QString &path, QString *error)
{
    RegularFile::Failure failure;
    const std::optional<QByteArray> bytes = RegularFile::read(path, RegularFile::PropertyListLimit, &failure);
    if (!bytes) {
        if (error)
            *error = failure.reason;
        return {};
    }
    return fromXml(*bytes, error);
}

QByteArray toXml(const QVariant &root)
{
    QByteArray out;
    QXmlStreamWriter xml(&out);
    xml.setAutoFormatting(true);
    xml.setAutoFormattingIndent(-1); // tabs
    xml.writeStartDocument();
    xml.writeDTD(u"<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
                 "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">"_s);
    xml.writeStartElement(u"plist"_s);
    xml.writeAttribute(u"version"_s, u"1.0"_s);
    writeValue(xml, root);
    xml.writeEndElement();
    xml.writeEndDocument();
    return out;
}

bool writeFile(const QString &path, const QVariant &root, QString *error)
{
    return writeFileAtomically(path, toXml(root), error);
}

} // namespace PropertyList
