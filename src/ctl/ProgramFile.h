#pragma once

#include "ctl/Outcome.h"

#include <QString>

class AQDataSource;

/// Light programs in files, as the commands take them.
namespace ProgramFile {

/// The document becomes the file's program, or the reason why it is none is returned.
QString read(const QString& path, AQDataSource& document);
/// What the document, read from `path`, holds; notes tell what is legal and seldom meant.
Outcome describe(const QString& path, const AQDataSource& document);
/// Today's share of the light as "acclimation day 9 of 28: 72 %"; empty when it is all of it.
QString acclimationText(const AQDataSource& document);
/// The same for a program; null when there is none.
QJsonValue acclimationJson(const AQDataSource& document);

} // namespace ProgramFile
