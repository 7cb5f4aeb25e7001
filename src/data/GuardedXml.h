#pragma once

#include <QByteArray>
#include <QString>

/// The part of an XML text that may be handed to a parser.
///
/// QXmlStreamReader takes seconds for a start tag with many attributes and gigabytes for nested
/// entities. What could cost that much is cut off before the parser sees it; what stands before the
/// cut is parsed as usual.
struct GuardedXml {
    /// Longest start tag, in UTF-16 units. Settings files have no attributes at all.
    static constexpr qsizetype maxTagLength = 1024;

    QString text;
    /// Why the text was cut; empty when it is whole. A cut text is malformed whatever it looks
    /// like.
    QString fault;

    /// Decodes UTF-8, UTF-16 with a byte order mark, and ISO-8859-1 where the text declares it.
    /// Cuts before an undecodable byte, a NUL, a document type with definitions of its own, or a
    /// tag that is too long; of a text that declares any other encoding nothing is left.
    static GuardedXml fromBytes(const QByteArray& bytes);
};
