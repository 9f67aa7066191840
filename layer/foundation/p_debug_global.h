#pragma once

#include <functional>
#include <string>

#include "layer/foundation/debug_message_context.h"

class PLogger;

using PDebugMessageHandler = std::function<void(const DebugMessageContext&, const std::string&)>;

// The process-wide debug channel, made on first use and never freed. Nothing guards it:
// install loggers and handlers before threads start.
class PDebugGlobal {
public:
    static PDebugGlobal& instance();

    // Prefixes the message by its kind and writes it, with a line end, to the current logger.
    static void defaultMessageHandler(const DebugMessageContext& context,
                                      const std::string& message);

    PLogger* logger;
    PDebugMessageHandler handler;
    int level = -1;

private:
    PDebugGlobal();
};

// Each gives what was installed before.
PLogger* pInstallDebugLogger(PLogger* logger);
PLogger* pDebugLogger();
PDebugMessageHandler pInstallDebugMessageHandler(PDebugMessageHandler handler);
PDebugMessageHandler pDebugMessageHandler();
