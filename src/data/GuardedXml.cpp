#include "data/GuardedXml.h"

#include <QStringDecoder>
#include <QXmlStreamReader>

#include <algorithm>

namespace {

/// The index behind the next `end`, or the end of the text.
qsizetype behind(QStringView text, QStringView end, qsizetype from) {
    const qsizetype found = text.indexOf(end, from);
    return found < 0 ? text.size() : found + end.size();
}

/// The index behind the '>' of the tag at `start`; a quoted '>' does not end it.
qsizetype behindTag(QStringView text, qsizetype start) {
    QChar quote;
    for (qsizetype index = start; index < text.size(); ++index) {
        const QChar c = text[index];
        if (!quote.isNull()) {
            if (c == quote)
                quote = QChar();
        } else if (c == u'"' || c == u'\'') {
            quote = c;
        } else if (c == u'>') {
            return index + 1;
        }
        if (index - start >= GuardedXml::maxTagLength)
            return index + 1;
    }
    return text.size();
}

void cut(GuardedXml& xml, qsizetype at, const QString& fault) {
    xml.text.truncate(at);
    xml.fault = fault;
}

void cutMarkup(GuardedXml& xml) {
    const QStringView text = xml.text;
    qsizetype start = 0;
    while ((start = text.indexOf(u'<', start)) >= 0) {
        const QStringView rest = text.mid(start);
        if (rest.startsWith(u"<!--")) {
            start = behind(text, u"-->", start + 4);
        } else if (rest.startsWith(u"<![CDATA[")) {
            start = behind(text, u"]]>", start);
        } else if (rest.startsWith(u"<?")) {
            start = behind(text, u"?>", start);
        } else {
            const qsizetype end = behindTag(text, start);
            if (end - start > GuardedXml::maxTagLength)
                return cut(xml, start, QStringLiteral("Tag too long."));
            // Definitions stand in brackets within the tag; a mere name or address does no harm.
            if (rest.startsWith(u"<!") && text.sliced(start, end - start).contains(u'['))
                return cut(xml, start, QStringLiteral("Definitions are not supported."));
            start = end;
        }
    }
}

/// The encoding that the text names in its first line, in lower case; empty when it names none.
QString declaredEncoding(const QString& text) {
    QXmlStreamReader xml(text.left(text.indexOf(u"?>") + 2));
    xml.readNext();
    return xml.documentEncoding().toString().toLower();
}

} // namespace

GuardedXml GuardedXml::fromBytes(const QByteArray& bytes) {
    const bool isUtf16 = bytes.startsWith("\xff\xfe") || bytes.startsWith("\xfe\xff");
    // A byte order mark hides the declaration here. That is right, because one that contradicts the
    // mark was left behind when the file was converted.
    const bool isLatin1 =
        declaredEncoding(QString::fromLatin1(bytes)) == QLatin1String("iso-8859-1");
    QStringDecoder decoder(isUtf16    ? QStringDecoder::Utf16
                           : isLatin1 ? QStringDecoder::Latin1
                                      : QStringDecoder::Utf8,
                           QStringDecoder::Flag::Stateless);

    GuardedXml xml{decoder(bytes), {}};
    // The decoder puts this character in the place of what it cannot decode. The text may hold one
    // of its own before that and is cut too early then, which does no harm: it is broken anyway.
    if (decoder.hasError())
        cut(xml, std::max<qsizetype>(xml.text.indexOf(QChar::ReplacementCharacter), 0),
            QStringLiteral("Encountered incorrectly encoded content."));
    if (const qsizetype nul = xml.text.indexOf(QChar::Null); nul >= 0)
        cut(xml, nul, QStringLiteral("Invalid XML character."));
    const QStringList supported{
        {}, QStringLiteral("utf-8"), QStringLiteral("us-ascii"), QStringLiteral("iso-8859-1")};
    const QString declared = declaredEncoding(xml.text);
    if (!supported.contains(declared) && !(isUtf16 && declared == QLatin1String("utf-16")))
        cut(xml, 0, QStringLiteral("Unsupported encoding."));
    cutMarkup(xml);
    return xml;
}
