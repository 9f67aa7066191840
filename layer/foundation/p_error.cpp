#include "layer/foundation/p_error.h"

#include <memory>

class PErrorPrivate {
public:
    PErrorPrivate() = default;
    PErrorPrivate(int code, const PString& message, const PString& module, const PString& method,
                  int line)
        : code(code), message(message), module(module), method(method), line(line) {}

    int code = 0;
    PString message;
    PString module;
    PString method;
    int line = 0;
};

PError::PError() : d(std::make_shared<PErrorPrivate>()) {}

PError::PError(int code, const PString& message)
    : d(std::make_shared<PErrorPrivate>(code, message, PString(), PString(), 0)) {}

PError::PError(int code, const PString& message, const PString& module, const PString& method,
               int line)
    : d(std::make_shared<PErrorPrivate>(code, message, module, method, line)) {}

PError::PError(const PError& other) = default;
PError& PError::operator=(const PError& other) = default;
PError::~PError() = default;

int PError::code() const {
    return d->code;
}
PString PError::message() const {
    return d->message;
}
PString PError::module() const {
    return d->module;
}
PString PError::method() const {
    return d->method;
}
int PError::line() const {
    return d->line;
}

void PError::setError(int code, const PString& message) {
    d->code = code;
    d->message = message;
}

void PError::setInfo(const PString& module, const PString& method, int line) {
    d->module = module;
    d->method = method;
    d->line = line;
}

void PError::clear() {
    d = PSharedDataPtr<PErrorPrivate>(std::make_shared<PErrorPrivate>());
}

PString PError::toString() const {
    PString text;
    const PString moduleName = module();
    if (!moduleName.isEmpty()) {
        text += moduleName + ":";
    }
    const PString methodName = method();
    if (!methodName.isEmpty()) {
        text += methodName + ":";
    }
    if (line() > 0) {
        text += PString::format("%d", line());
    }
    text += PString::format("[%d]", code());
    text += message();
    return text;
}
