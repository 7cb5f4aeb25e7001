#include "yprotocoll/MarkedText.h"

std::string untranslated(const char* /*context*/, const char* source) {
    return source;
}

std::string MarkedText::in(Translation translate) const {
    // What is put in may hold a mark of its own, so the text is gone through once.
    const std::string text = translate("YMessageError", source.c_str());
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isMark = text[i] == '%' && i + 1 < text.size() && text[i + 1] >= '1' &&
                            static_cast<std::size_t>(text[i + 1] - '1') < arguments.size();
        if (isMark)
            result += arguments[static_cast<std::size_t>(text[++i] - '1')];
        else
            result += text[i];
    }
    return result;
}
