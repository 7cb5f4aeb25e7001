#include "lamp/ProgramCopy.h"

#include "data/AQDataSource.h"
#include "data/AQDataSourceWriter.h"
#include "data/DeviceProgramImage.h"

QString ProgramCopy::save(const QString& path, const StoredProgram& program,
                          const std::optional<DeviceInfo>& device) {
    NotificationCenter unheard;
    AQDataSource copy(unheard, [&device] { return device; });
    copy.sequence().replacePoints(program.contents->points);
    copy.setTaskLight(program.contents->taskLight);
    AQDataSourceWriter writer(copy);
    writer.saveToFile(path);
    return writer.errorString();
}

ProgramComparison ProgramCopy::givenBack(const StoredProgram& program) {
    const auto channels = static_cast<int>(program.image.channels.size());
    return {*program.contents, DeviceProgramImage::imageOf(*program.contents, channels),
            program.image};
}
