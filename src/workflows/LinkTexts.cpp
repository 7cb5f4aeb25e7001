#include "workflows/LinkTexts.h"

#include <QCoreApplication>

namespace {

std::string translation(const char* context, const char* source) {
    return QCoreApplication::translate(context, source).toStdString();
}

} // namespace

QString LinkTexts::shown(const YMessageError& error) {
    return QString::fromStdString(error.description(translation));
}

QString LinkTexts::shown(const MarkedText& text) {
    return QString::fromStdString(text.in(translation));
}
