#pragma once

#include <list>
#include <string>
#include <vector>

#include "layer/fonts/p_font_info.h"

// The TrueType fonts of the device, listed once per process: the files of /system/fonts/ on
// Android, the fonts that fontconfig knows elsewhere. A font is named after its file, without
// ".ttf".
class PSystemFontHelper {
public:
    // Lists the fonts unless there is a list; an empty list is looked for again next time.
    static bool loadFontsInfo();
    // A fresh listing that leaves the stored one alone.
    static std::list<PFontInfo> getSystemFontsInfo();
    static unsigned int getFontsCount();
    static std::vector<PFontInfo> getFontsInfo();
    // Empty when there is no such font; neither loads the list.
    static PFontInfo getFontInfo(unsigned int index);
    static PFontInfo getFontInfo(const std::wstring& name);

    // The font of a file in a directory (ending in '/'): named by what stands before the file
    // name's last ".ttf". False when nothing stands there.
    static bool fontOfFile(const std::string& directory, const std::string& fileName,
                           PFontInfo& font);
};
