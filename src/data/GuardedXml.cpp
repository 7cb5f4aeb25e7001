#include "data/GuardedXml.h"

#include <QStringDecoder>

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
        } else if (rest.startsWith(u"<!")) {
            return cut(xml, start, QStringLiteral("Document types are not supported."));
        } else {
            const qsizetype end = behindTag(text, start);
            if (end - start > GuardedXml::maxTagLength)
                return cut(xml, start, QStringLiteral("Tag too long."));
            start = end;
        }
    }
}

} // namespace

GuardedXml GuardedXml::fromBytes(const QByteArray& bytes) {
    const bool isUtf16 = bytes.startsWith("\xff\xfe") || bytes.startsWith("\xfe\xff");
    QStringDecoder decoder(isUtf16 ? QStringDecoder::Utf16 : QStringDecoder::Utf8,
                           QStringDecoder::Flag::Stateless);

    GuardedXml xml{decoder(bytes), {}, isUtf16};
    // The decoder marks what it could not decode. A mark that was meant so cuts too early, which
    // does no harm: the text is broken in any case.
    if (decoder.hasError())
        cut(xml, std::max<qsizetype>(xml.text.indexOf(QChar::ReplacementCharacter), 0),
            QStringLiteral("Encountered incorrectly encoded content."));
    if (const qsizetype nul = xml.text.indexOf(QChar::Null); nul >= 0)
        cut(xml, nul, QStringLiteral("Invalid XML character."));
    cutMarkup(xml);
    return xml;
}

bool GuardedXml::allowsEncoding(QStringView declared) const {
    const auto is = [declared](QStringView name) {
        return declared.compare(name, Qt::CaseInsensitive) == 0;
    };
    // A byte order mark overrules a declaration that was left behind when the file was converted.
    return declared.isEmpty() || is(u"utf-8") || is(u"us-ascii") || (isUtf16 && is(u"utf-16"));
}
