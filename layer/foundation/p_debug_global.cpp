#include "layer/foundation/p_debug_global.h"

#include <iostream>
#include <sstream>
#include <utility>

#include "layer/foundation/p_logger.h"

PDebugGlobal::PDebugGlobal()
    : logger(new PLogger(&std::cerr)), handler(&PDebugGlobal::defaultMessageHandler) {}

PDebugGlobal& PDebugGlobal::instance() {
    // Never freed: messages may come from static destructors.
    static PDebugGlobal* global = new PDebugGlobal();
    return *global;
}

void PDebugGlobal::defaultMessageHandler(const DebugMessageContext& context,
                                         const std::string& message) {
    std::ostringstream text;
    switch (context.type) {
        case DebugMessageContext::Warning:
            text << "[W]" << message << std::endl;
            break;
        case DebugMessageContext::Fatal:
            text << "[F]" << message << std::endl;
            break;
        case DebugMessageContext::Debug:
            if (context.level >= 0) {
                text << "[D(" << context.level << ")]";
            }
            text << message << std::endl;
            break;
        default:
            break;
    }
    if (PLogger* logger = pDebugLogger()) {
        *logger << text.str();
    }
}

PLogger* pInstallDebugLogger(PLogger* logger) {
    return std::exchange(PDebugGlobal::instance().logger, logger);
}

PLogger* pDebugLogger() {
    return PDebugGlobal::instance().logger;
}

PDebugMessageHandler pInstallDebugMessageHandler(PDebugMessageHandler handler) {
    return std::exchange(PDebugGlobal::instance().handler, std::move(handler));
}

PDebugMessageHandler pDebugMessageHandler() {
    return PDebugGlobal::instance().handler;
}
