#include "tools/host/recording_host.h"

#include "tools/host/host_strings.h"

namespace VelkoHost {

bool RecordingHost::reportError(unsigned short code, const unsigned short* source,
                                const unsigned short* description, long systemCode) {
    errors.push_back({code, fromHostString(source), fromHostString(description), systemCode});
    return true;
}

}  // namespace VelkoHost
