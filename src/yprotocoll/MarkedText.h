#pragma once

#include <string>
#include <utility>
#include <vector>

/// Gives the translation of `source`, or `source` when there is none.
using Translation = std::string (*)(const char* context, const char* source);

/// The translation into English, for the log.
std::string untranslated(const char* context, const char* source);

/// A text for the person that the log has in English. A value.
struct MarkedText {
    std::string source;                      ///< English, with %1 to %9 for the arguments
    std::vector<std::string> arguments = {}; ///< names and numbers

    MarkedText() = default;
    /// Implicit on purpose: the system's own words need no mark.
    MarkedText(std::string text, std::vector<std::string> values = {})
        : source(std::move(text)), arguments(std::move(values)) {}

    bool empty() const { return source.empty(); }
    /// `source` is looked up in the context "YMessageError".
    std::string in(Translation translate) const;
    bool operator==(const MarkedText&) const = default;
};
