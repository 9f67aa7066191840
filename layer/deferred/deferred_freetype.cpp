// FreeType, opened for the first TrueType font (see deferred_library.h).
#include <ft2build.h>
#include FT_FREETYPE_H

#include "layer/foundation/deferred_library.h"

namespace {

const DeferredLibrary g_freeType(VELKO_FREETYPE_SONAME);
// What a function answers while FreeType can't be had.
constexpr FT_Error kMissing = FT_Err_Cannot_Open_Resource;

}  // namespace

FT_Error FT_Init_FreeType(FT_Library* library) {
    static const auto call = g_freeType.function<decltype(&FT_Init_FreeType)>("FT_Init_FreeType");
    return call ? call(library) : kMissing;
}

FT_Error FT_Done_FreeType(FT_Library library) {
    static const auto call = g_freeType.function<decltype(&FT_Done_FreeType)>("FT_Done_FreeType");
    return call ? call(library) : kMissing;
}

FT_Error FT_New_Memory_Face(FT_Library library, const FT_Byte* base, FT_Long size, FT_Long index,
                            FT_Face* face) {
    static const auto call =
        g_freeType.function<decltype(&FT_New_Memory_Face)>("FT_New_Memory_Face");
    return call ? call(library, base, size, index, face) : kMissing;
}

FT_Error FT_Done_Face(FT_Face face) {
    static const auto call = g_freeType.function<decltype(&FT_Done_Face)>("FT_Done_Face");
    return call ? call(face) : kMissing;
}

FT_Error FT_Set_Char_Size(FT_Face face, FT_F26Dot6 width, FT_F26Dot6 height, FT_UInt horizontal,
                          FT_UInt vertical) {
    static const auto call = g_freeType.function<decltype(&FT_Set_Char_Size)>("FT_Set_Char_Size");
    return call ? call(face, width, height, horizontal, vertical) : kMissing;
}

FT_Error FT_Set_Pixel_Sizes(FT_Face face, FT_UInt width, FT_UInt height) {
    static const auto call =
        g_freeType.function<decltype(&FT_Set_Pixel_Sizes)>("FT_Set_Pixel_Sizes");
    return call ? call(face, width, height) : kMissing;
}

FT_Error FT_Load_Char(FT_Face face, FT_ULong code, FT_Int32 flags) {
    static const auto call = g_freeType.function<decltype(&FT_Load_Char)>("FT_Load_Char");
    return call ? call(face, code, flags) : kMissing;
}

// Only called on a face, which FreeType must have made.
FT_Long FT_MulFix(FT_Long a, FT_Long b) {
    static const auto call = g_freeType.function<decltype(&FT_MulFix)>("FT_MulFix");
    return call ? call(a, b) : 0;
}
