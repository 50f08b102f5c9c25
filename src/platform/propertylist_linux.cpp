#include "propertylist.h"

#include <QDateTime>
#include <QIODevice>
#include <QLocale>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

namespace {

// Deeper than any agent's list, and shallow enough for the stack.
constexpr int maximumDepth = 64;

QVariant readValue(QXmlStreamReader &xml, int depth);

QVariant checked(QXmlStreamReader &xml, bool ok, const QVariant &value)
{
    if (!ok) {
        xml.raiseError(QStringLiteral("Not a value of its type"));
    }
    return value;
}

QVariant readInteger(QXmlStreamReader &xml)
{
    const QString text = xml.readElementText().trimmed();
    const int base = text.contains(QLatin1Char('x'), Qt::CaseInsensitive) ? 16 : 10;
    bool ok = false;
    const qlonglong value = text.toLongLong(&ok, base);
    if (ok) {
        return value;
    }
    const qulonglong large = text.toULongLong(&ok, base);
    return checked(xml, ok, large);
}

QVariant readReal(QXmlStreamReader &xml)
{
    bool ok = false;
    const double value = xml.readElementText().toDouble(&ok);
    return checked(xml, ok, value);
}

QVariant readDate(QXmlStreamReader &xml)
{
    const QDateTime date = QDateTime::fromString(xml.readElementText().trimmed(), Qt::ISODate);
    return checked(xml, date.isValid(), date);
}

/// Empty but not null when the element is empty: only an absent value is null.
QString readText(QXmlStreamReader &xml)
{
    const QString text = xml.readElementText();
    return text.isNull() ? QLatin1String("") : text;
}

QVariant readArray(QXmlStreamReader &xml, int depth)
{
    QVariantList values;
    QStringList strings;
    while (xml.readNextStartElement()) {
        const QVariant value = readValue(xml, depth + 1);
        values.append(value);
        if (value.type() == QVariant::String) {
            strings.append(value.toString());
        }
    }
    if (!values.isEmpty() && strings.size() == values.size()) {
        return strings;
    }
    return values;
}

QVariantMap readDictionary(QXmlStreamReader &xml, int depth)
{
    QVariantMap values;
    while (xml.readNextStartElement()) {
        if (xml.name() != QLatin1String("key")) {
            xml.raiseError(QStringLiteral("Not a key"));
            break;
        }
        const QString key = xml.readElementText();
        if (!xml.readNextStartElement()) {
            xml.raiseError(QStringLiteral("A key without a value"));
            break;
        }
        values.insert(key, readValue(xml, depth + 1));
    }
    return values;
}

bool readBoolean(QXmlStreamReader &xml, bool value)
{
    xml.skipCurrentElement();
    return value;
}

QVariant readValue(QXmlStreamReader &xml, int depth)
{
    const QString type = xml.name().toString();
    if (depth > maximumDepth) {
        xml.raiseError(QStringLiteral("Nested too deep"));
    } else if (type == QLatin1String("string")) {
        return readText(xml);
    } else if (type == QLatin1String("true") || type == QLatin1String("false")) {
        return readBoolean(xml, type == QLatin1String("true"));
    } else if (type == QLatin1String("integer")) {
        return readInteger(xml);
    } else if (type == QLatin1String("real")) {
        return readReal(xml);
    } else if (type == QLatin1String("date")) {
        return readDate(xml);
    } else if (type == QLatin1String("data")) {
        return QByteArray::fromBase64(xml.readElementText().toLatin1());
    } else if (type == QLatin1String("array")) {
        return readArray(xml, depth);
    } else if (type == QLatin1String("dict")) {
        return readDictionary(xml, depth);
    } else {
        xml.raiseError(QStringLiteral("Not a type of a property list"));
    }
    return QVariant();
}

bool writeValue(QXmlStreamWriter &xml, const QVariant &value);

template<typename List>
bool writeArray(QXmlStreamWriter &xml, const List &values)
{
    bool ok = true;
    xml.writeStartElement(QStringLiteral("array"));
    for (const auto &value : values) {
        ok = writeValue(xml, value) && ok;
    }
    xml.writeEndElement();
    return ok;
}

bool writeDictionary(QXmlStreamWriter &xml, const QVariantMap &values)
{
    bool ok = true;
    xml.writeStartElement(QStringLiteral("dict"));
    for (auto it = values.cbegin(); it != values.cend(); ++it) {
        xml.writeTextElement(QStringLiteral("key"), it.key());
        ok = writeValue(xml, it.value()) && ok;
    }
    xml.writeEndElement();
    return ok;
}

bool writeText(QXmlStreamWriter &xml, const char *type, const QString &text)
{
    xml.writeTextElement(QLatin1String(type), text);
    return true;
}

bool writeValue(QXmlStreamWriter &xml, const QVariant &value)
{
    switch (static_cast<QMetaType::Type>(value.type())) {
    case QMetaType::Bool:
        xml.writeEmptyElement(value.toBool() ? QStringLiteral("true") : QStringLiteral("false"));
        return true;
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong: return writeText(xml, "integer", value.toString());
    case QMetaType::Double:
        return writeText(xml, "real", QString::number(value.toDouble(), 'g', QLocale::FloatingPointShortest));
    case QMetaType::QString: return writeText(xml, "string", value.toString());
    case QMetaType::QDateTime: return writeText(xml, "date", value.toDateTime().toUTC().toString(Qt::ISODate));
    case QMetaType::QByteArray: return writeText(xml, "data", QString::fromLatin1(value.toByteArray().toBase64()));
    case QMetaType::QStringList: return writeArray(xml, value.toStringList());
    case QMetaType::QVariantList: return writeArray(xml, value.toList());
    case QMetaType::QVariantMap: return writeDictionary(xml, value.toMap());
    default: return false;
    }
}

} // namespace

bool PropertyList::read(QIODevice &device, QSettings::SettingsMap &values)
{
    QXmlStreamReader xml(&device);
    if (!xml.readNextStartElement() || xml.name() != QLatin1String("plist")) {
        return false;
    }
    if (!xml.readNextStartElement() || xml.name() != QLatin1String("dict")) {
        return false;
    }
    const QVariantMap dictionary = readDictionary(xml, 0);
    if (xml.readNextStartElement()) { // a list holds one value
        return false;
    }
    while (!xml.atEnd()) {
        xml.readNext();
    }
    if (xml.hasError()) {
        return false;
    }
    values = dictionary;
    return true;
}

bool PropertyList::write(QIODevice &device, const QSettings::SettingsMap &values)
{
    QXmlStreamWriter xml(&device);
    xml.setAutoFormatting(true);
    xml.setAutoFormattingIndent(-1); // one tab, as macOS writes it
    xml.writeStartDocument();
    xml.writeDTD(QStringLiteral("<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
                                "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">"));
    xml.writeStartElement(QStringLiteral("plist"));
    xml.writeAttribute(QStringLiteral("version"), QStringLiteral("1.0"));
    const bool ok = writeDictionary(xml, values);
    xml.writeEndElement();
    xml.writeEndDocument();
    return ok && !xml.hasError();
}
