// Renders DejaVu Sans Bold at one bit per pixel into the records of the built-in font and
// writes them as C++ source.

#include <ft2build.h>
#include FT_FREETYPE_H
#include <fontconfig/fontconfig.h>

#include <cmath>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

#include "layer/fonts/p_glyph.h"
#include "layer/fonts/p_glyph_stump.h"
#include "layer/fonts/ttf_helper.h"

namespace {

constexpr int kFirstSize = 6;
constexpr int kLastSize = 41;
// DejaVu is wide; rendered narrower than high, a digit at size 12 advances 7 pixels. The
// autohinter keeps the strokes of hard-edged small sizes even.
constexpr double kWidthRatio = 0.8;

// Digits, lower case, upper case, then the punctuation that labels print.
std::vector<unsigned int> fontCharacters() {
    std::vector<unsigned int> codes;
    const auto add = [&codes](unsigned int first, unsigned int last) {
        for (unsigned int code = first; code <= last; ++code) {
            codes.push_back(code);
        }
    };
    add('0', '9');
    add('a', 'z');
    add('A', 'Z');
    add(33, 47);
    add(91, 95);
    add(123, 126);
    return codes;
}

// The descender steps down by one pixel after each of these sizes.
int descenderOf(int size) {
    const int lastSizeOfStep[] = {9, 14, 19, 24, 29, 33, 38};
    int descender = -1;
    for (int last : lastSizeOfStep) {
        if (size <= last) {
            return descender;
        }
        --descender;
    }
    return descender;
}

int vertAdvanceOf(int size) {
    return size <= 17 ? size : size - 1;
}

std::string defaultFontFile() {
    std::string path;
    // A configuration of our own: the shared one is never released.
    FcConfig* config = FcInitLoadConfigAndFonts();
    FcPattern* pattern = FcNameParse(reinterpret_cast<const FcChar8*>("DejaVu Sans:bold"));
    if (config && pattern) {
        FcConfigSubstitute(config, pattern, FcMatchPattern);
        FcDefaultSubstitute(pattern);
        FcResult result = FcResultNoMatch;
        if (FcPattern* match = FcFontMatch(config, pattern, &result)) {
            FcChar8* file = nullptr;
            if (FcPatternGetString(match, FC_FILE, 0, &file) == FcResultMatch && file) {
                path = reinterpret_cast<const char*>(file);
            }
            FcPatternDestroy(match);
        }
    }
    if (pattern) {
        FcPatternDestroy(pattern);
    }
    if (config) {
        FcConfigDestroy(config);
    }
    return path;
}

// The glyph at a pixel height; false if FreeType has no bitmap for it.
bool renderGlyph(FT_Face face, int pixelHeight, int size, unsigned int code, PGlyph& glyph) {
    const int pixelWidth = static_cast<int>(std::lround(pixelHeight * kWidthRatio));
    if (FT_Set_Pixel_Sizes(face, pixelWidth, pixelHeight) ||
        FT_Load_Char(face, code, FT_LOAD_RENDER | FT_LOAD_TARGET_MONO | FT_LOAD_FORCE_AUTOHINT)) {
        return false;
    }
    const FT_GlyphSlot slot = face->glyph;
    const FT_Bitmap& bitmap = slot->bitmap;
    PGlyphMetrics metrics;
    metrics.width = static_cast<int>(bitmap.width);
    metrics.height = static_cast<int>(bitmap.rows);
    metrics.horiBearingX = slot->bitmap_left;
    metrics.horiBearingY = slot->bitmap_top;
    metrics.horiAdvance = TTFHelper::fromFixed(slot->advance.x);
    metrics.vertBearingX = TTFHelper::fromFixed(slot->metrics.vertBearingX);
    metrics.vertBearingY = TTFHelper::fromFixed(slot->metrics.vertBearingY);
    metrics.vertAdvance = vertAdvanceOf(size);
    metrics.ascender = size;
    metrics.descender = descenderOf(size);
    glyph = PGlyph(TTFHelper::bitmapToImage(bitmap.buffer, bitmap.width, bitmap.rows, bitmap.pitch,
                                            bitmap.pixel_mode),
                   metrics);
    return true;
}

// The record of a character at a size; a bitmap too large for its record is rendered smaller.
bool makeStump(FT_Face face, int size, unsigned int code, PGlyphStump& stump) {
    for (int pixelHeight = size; pixelHeight > 0; --pixelHeight) {
        PGlyph glyph;
        if (!renderGlyph(face, pixelHeight, size, code, glyph)) {
            return false;
        }
        try {
            glyph2Stump(0, size, static_cast<int>(code), glyph, stump);
            return true;
        } catch (int) {
            std::cerr << "size " << size << " code " << code << " rendered smaller\n";
        }
    }
    return false;
}

bool writeHeader(const std::string& path) {
    std::ofstream out(path);
    out << "#pragma once\n\n"
           "#include \"layer/fonts/p_glyph_stump.h\"\n\n"
           "// The built-in font: every size from 6 to 41 pixels, each with the same characters, "
           "sizes\n"
           "// ascending. Made by tools/fontgen.\n"
           "extern const PGlyphStump def_font_data[];\n"
           "extern const unsigned int def_font_data_count;\n";
    return static_cast<bool>(out);
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 2 || argc > 3) {
        std::cerr << "usage: velko-fontgen OUTPUT_DIR [FONT_FILE]\n";
        return 2;
    }
    const std::string outputDir = argv[1];
    const std::string fontFile = argc == 3 ? argv[2] : defaultFontFile();
    FT_Library library = nullptr;
    FT_Face face = nullptr;
    if (FT_Init_FreeType(&library) || FT_New_Face(library, fontFile.c_str(), 0, &face)) {
        std::cerr << "cannot open font '" << fontFile << "'\n";
        return 1;
    }

    std::ofstream table(outputDir + "/def_font_data.cpp");
    table << "// Generated by tools/fontgen from " << face->family_name << " " << face->style_name
          << "; do not edit.\n"
             "// clang-format off\n"
             "#include \"data/def_font_data.h\"\n\n"
             "const PGlyphStump def_font_data[] = {\n";
    unsigned int count = 0;
    for (int size = kFirstSize; size <= kLastSize; ++size) {
        for (unsigned int code : fontCharacters()) {
            PGlyphStump stump;
            if (!makeStump(face, size, code, stump)) {
                std::cerr << "no glyph for code " << code << " at size " << size << "\n";
                return 1;
            }
            table << serializeStump(stump) << ",\n";
            ++count;
        }
    }
    table << "};\n\n"
             "const unsigned int def_font_data_count = "
          << count << ";\n";
    table.close();
    FT_Done_Face(face);
    FT_Done_FreeType(library);
    if (!table || !writeHeader(outputDir + "/def_font_data.h")) {
        std::cerr << "cannot write to " << outputDir << "\n";
        return 1;
    }
    std::cout << count << " glyphs from " << fontFile << "\n";
    return 0;
}
