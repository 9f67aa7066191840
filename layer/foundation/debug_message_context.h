#pragma once

// What kind of debug message is on its way to the handler.
struct DebugMessageContext {
    enum Type { Debug = 0, Warning = 1, Fatal = 2 };

    int type = Debug;
    // Debug messages with a level of 0 or more carry it in their prefix.
    int level = -1;
};
