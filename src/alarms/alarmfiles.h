// The person's own files on alarms, beside the planners.
#pragma once

#include "platform/desktop/folders.h"

namespace alarmfiles {
inline QString PutOff() // PutOffAlarms
{
    return folders::ApplicationDirectory() + u"/alarms.json"_s;
}
inline QString Heard() // HeardAlarms
{
    return folders::ApplicationDirectory() + u"/heardalarms.json"_s;
}
} // namespace alarmfiles
