#pragma once

// Indexes the level rows of the tables; not the two-bit code of the format information.
enum ErrorCorrectionLevels { LevelL = 0, LevelM = 1, LevelQ = 2, LevelH = 3 };

inline bool isValidLevel(int level) {
    return level >= LevelL && level <= LevelH;
}
