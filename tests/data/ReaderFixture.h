#pragma once

#include "data/AQDataSource.h"
#include "data/AQDataSourceReader.h"
#include "data/NotificationLog.h"

#include <string>

/// A document with a reader; what was read, in a form that is easy to compare.
struct ReaderFixture {
    NotificationCenter center;
    AQDataSource document{center};
    AQDataSourceReader reader{document};
    NotificationLog log{center};

    /// "600/144/204 ...": minute, colour and intensity of each point.
    std::string points() const {
        std::string text;
        for (const AQTimePoint& point : document.sequence().points())
            text += std::to_string(point.time.minuteOfDay()) + light(point) + " ";
        return text;
    }
    /// "0:1:0/128/255 1": duration, colour and intensity of the task light, then the mode.
    std::string rest() const {
        const AQTime& time = document.taskLight().time;
        return std::to_string(time.hour) + ":" + std::to_string(time.minute) + ":" +
               std::to_string(time.second) + light(document.taskLight()) +
               (document.isProgramMode() ? " 1" : " 0");
    }

private:
    static std::string light(const AQTimePoint& point) {
        return "/" + std::to_string(byteFromFraction(point.colorTemp)) + "/" +
               std::to_string(byteFromFraction(point.brightness));
    }
};

inline const char defaultPoints[] =
    "510/255/0 600/144/204 900/128/255 1200/144/204 1260/235/128 1350/255/38 1410/255/0 ";
inline const char defaultRest[] = "0:1:0/128/255 1";
