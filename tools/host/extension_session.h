#pragma once

#include <string>
#include <variant>
#include <vector>

#include "host/velko_interfaces.h"
#include "tools/host/recording_host.h"
#include "tools/host/tracking_memory.h"

namespace VelkoHost {

class ExtensionLibrary;

// A property value as the host sees it: nothing, an integer, a double, a Boolean, text (UTF-8
// here, 16-bit units on the wire) or bytes.
using Value =
    std::variant<std::monostate, int, double, bool, std::string, std::vector<unsigned char>>;

// One extension object, driven in the platform's order: GetClassObject("CBarcode"), Init,
// setMemManager, RegisterExtensionAs; Done and DestroyObject at the end. Every buffer the
// extension hands over is given back to the tracking allocator at once.
class ExtensionSession {
public:
    // Without initialise, Init is left to init(), as a host that skips it would.
    explicit ExtensionSession(const ExtensionLibrary& library, bool withMemory = true,
                              bool initialise = true);
    ~ExtensionSession();
    ExtensionSession(const ExtensionSession&) = delete;
    ExtensionSession& operator=(const ExtensionSession&) = delete;

    // Null when the library refused to make the object.
    IVelkoExtension* object() const { return extension; }
    TrackingMemory& memory() { return allocator; }
    RecordingHost& host() { return connection; }
    const std::string& registeredName() const { return registered; }

    // Init with the host's connection, and Done, out of the platform's order too.
    bool init();
    void done();

    // By English or Russian name, as FindProp looks it up; -1 when unknown.
    long propIndex(const std::string& name);
    bool set(long index, const Value& value);
    bool set(const std::string& name, const Value& value);
    // What GetPropVal answered, with its tag turned into a Value; nothing when it answered false.
    Value get(long index);
    Value get(const std::string& name);
    // Calls a method by index; the result's buffer, if any, is copied and given back.
    bool call(long method, std::vector<Value> parameters, Value& result);
    // GetBarcode: the PNG bytes, empty when none came.
    std::vector<unsigned char> getBarcode();

    // Turns a host variant into a Value and gives its buffer back; false if the buffer was not
    // a live one of the allocator, or was written past its end.
    bool take(const VelkoVariant& variant, Value& value);
    // True once any buffer came back that was not a live one, or was overrun.
    bool sawBufferFault() const { return bufferFault; }

private:
    VelkoVariant toVariant(const Value& value, std::vector<unsigned short>& text) const;

    const ExtensionLibrary& library;
    TrackingMemory allocator;
    RecordingHost connection;
    IVelkoExtension* extension = nullptr;
    std::string registered;
    bool bufferFault = false;
};

}  // namespace VelkoHost
