#pragma once

#include "yprotocoll/YMessageError.h"

#include <QString>

/// What the link reports, in the person's language. The log has it in English.
namespace LinkTexts {

QString shown(const YMessageError& error);
QString shown(const MarkedText& text);

} // namespace LinkTexts
