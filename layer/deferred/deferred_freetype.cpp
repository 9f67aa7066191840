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
    return g_freeType.call<&FT_Init_FreeType>("FT_Init_FreeType", kMissing, library);
}

FT_Error FT_Done_FreeType(FT_Library library) {
    return g_freeType.call<&FT_Done_FreeType>("FT_Done_FreeType", kMissing, library);
}

FT_Error FT_New_Memory_Face(FT_Library library, const FT_Byte* base, FT_Long size, FT_Long index,
                            FT_Face* face) {
    return g_freeType.call<&FT_New_Memory_Face>("FT_New_Memory_Face", kMissing, library, base, size,
                                                index, face);
}

FT_Error FT_Done_Face(FT_Face face) {
    return g_freeType.call<&FT_Done_Face>("FT_Done_Face", kMissing, face);
}

FT_Error FT_Set_Char_Size(FT_Face face, FT_F26Dot6 width, FT_F26Dot6 height, FT_UInt horizontal,
                          FT_UInt vertical) {
    return g_freeType.call<&FT_Set_Char_Size>("FT_Set_Char_Size", kMissing, face, width, height,
                                              horizontal, vertical);
}

FT_Error FT_Set_Pixel_Sizes(FT_Face face, FT_UInt width, FT_UInt height) {
    return g_freeType.call<&FT_Set_Pixel_Sizes>("FT_Set_Pixel_Sizes", kMissing, face, width,
                                                height);
}

FT_Error FT_Load_Char(FT_Face face, FT_ULong code, FT_Int32 flags) {
    return g_freeType.call<&FT_Load_Char>("FT_Load_Char", kMissing, face, code, flags);
}

// Only called on a face, which FreeType must have made.
FT_Long FT_MulFix(FT_Long a, FT_Long b) {
    return g_freeType.call<&FT_MulFix>("FT_MulFix", 0, a, b);
}
