#include "layer/GS1/gs1_id_table.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

GS1IdSection::GS1IdSection(unsigned char fixedLength, unsigned char variableLength,
                           unsigned char separator, const char* code, const char* title,
                           const char* description, const char* format)
    : fixedLength(fixedLength), variableLength(variableLength), separator(separator) {
    auto copy = [](char* field, size_t size, const char* text) {
        std::memset(field, 0, size);
        if (text) {
            std::strncpy(field, text, size - 1);
        }
    };
    copy(this->code, sizeof(this->code), code);
    copy(this->title, sizeof(this->title), title);
    copy(this->description, sizeof(this->description), description);
    copy(this->format, sizeof(this->format), format);
}

namespace {

// A run of identifiers that share one row of the table: first to last, both of the same number
// of digits, or a single key ("360n") that stands for itself.
struct GS1IdRun {
    const char* first;
    const char* last;
    unsigned char fixedLength;
    unsigned char variableLength;
    unsigned char separator;
    const char* code;
    const char* title;
    const char* description;
};

// The application identifiers of the GS1 standard's figure 3.2-1 "GS1 Application
// Identifiers", as lengths of the fixed and the variable part of the data and whether a
// separator follows the element; from 3230 on the rows carry no text.
const GS1IdRun g_aGS1IdRuns[] = {
    {"00", "00", 18, 0, 0, "00", "SSCC", "Serial Shipping Container Code (SSCC)"},
    {"01", "01", 14, 0, 0, "01", "GTIN", "Global Trade Item Number (GTIN)"},
    // The code column of 02 and 242 repeats the identifier before them.
    {"02", "02", 14, 0, 0, "01", "CONTENT", "GTIN of contained trade items"},
    {"10", "10", 0, 20, 1, "10", "BATCH/LOT", "Batch or lot number"},
    {"11", "11", 6, 0, 0, "11", "PROD DATE", "Production date (YYMMDD)"},
    {"12", "12", 6, 0, 0, "12", "DUE DATE", "Due date (YYMMDD)"},
    {"13", "13", 6, 0, 0, "13", "PACK DATE", "Packaging date (YYMMDD)"},
    {"15", "15", 6, 0, 0, "15", "BEST BY", "Best before date (YYMMDD)"},
    {"16", "16", 6, 0, 0, "16", "SELL BY", "Sell by date (YYMMDD)"},
    {"17", "17", 6, 0, 0, "17", "EXPIRY", "Expiration date (YYMMDD)"},
    {"20", "20", 2, 0, 0, "20", "VARIANT", "Internal product variant"},
    {"21", "21", 0, 20, 1, "21", "SERIAL", "Serial number"},
    {"22", "22", 0, 20, 1, "22", "CPV", "Consumer product variant"},
    {"235", "235", 0, 28, 1, "235", "TPX",
     "Third Party Controlled, Serialised Extension of GTIN (TPX)"},
    {"240", "240", 0, 30, 1, "240", "ADDITIONAL ID",
     "Additional product identification assigned by the manufacturer"},
    {"241", "241", 0, 30, 1, "241", "CUST. PART NO.", "Customer part number"},
    {"242", "242", 0, 6, 1, "241", "MTO VARIANT", "Made-to-Order variation number"},
    {"243", "243", 0, 20, 1, "243", "PCN", "Packaging component number"},
    {"250", "250", 0, 30, 1, "250", "SECONDARY SERIAL", "Secondary serial number"},
    {"251", "251", 0, 30, 1, "251", "REF. TO SOURCE", "Reference to source entity"},
    {"253", "253", 13, 17, 1, "253", "GDTI", "Global Document Type Identifier (GDTI)"},
    {"254", "254", 0, 20, 1, "254", "GLN EXTENSION COMPONENT",
     "Global Location Number (GLN) extension component"},
    {"255", "255", 13, 12, 1, "255", "GCN", "Global Coupon Number (GCN)"},
    {"30", "30", 0, 8, 1, "30", "VAR. COUNT",
     "Variable count of items (variable measure trade item)"},
    {"3100", "3109", 6, 0, 0, "310n", "NET WEIGHT (kg)",
     "Net weight, kilograms (variable measure trade item)"},
    {"3110", "3119", 6, 0, 0, "311n", "LENGTH (m)",
     "Length or first dimension, metres (variable measure trade item)"},
    {"3120", "3129", 6, 0, 0, "312n", "WIDTH (m)",
     "Width, diameter, or second dimension, metres (variable measure trade item)"},
    {"3130", "3139", 6, 0, 0, "313n", "HEIGHT (m)",
     "Depth, thickness, height, or third dimension, metres (variable measure trade item)"},
    {"3140", "3149", 6, 0, 0, "314n", "AREA (m2)",
     "Area, square metres (variable measure trade item)"},
    {"3150", "3159", 6, 0, 0, "315n", "NET VOLUME (l)",
     "Net volume, litres (variable measure trade item)"},
    {"3160", "3169", 6, 0, 0, "316n", "NET VOLUME (m3)",
     "Net volume, cubic metres (variable measure trade item)"},
    {"3200", "3209", 6, 0, 0, "320n", "NET WEIGHT (lb)",
     "Net weight, pounds (variable measure trade item)"},
    {"3210", "3219", 6, 0, 0, "321n", "LENGTH (i)",
     "Length or first dimension, inches (variable measure trade item)"},
    {"3220", "3229", 6, 0, 0, "322n", "LENGTH (f)",
     "Length or first dimension, feet (variable measure trade item)"},
    {"3230", "3379", 6, 0, 0, "", "", ""},
    {"3400", "3579", 6, 0, 0, "", "", ""},
    {"3600", "3699", 6, 0, 0, "", "", ""},
    {"360n", "360n", 6, 0, 0, "", "", ""},
    {"37", "37", 0, 8, 1, "", "", ""},
    {"3900", "3909", 0, 15, 1, "", "", ""},
    {"3910", "3919", 3, 15, 1, "", "", ""},
    {"3920", "3929", 0, 15, 1, "", "", ""},
    {"3930", "3939", 3, 15, 1, "", "", ""},
    {"3940", "3949", 4, 0, 1, "", "", ""},
    {"400", "401", 0, 30, 1, "", "", ""},
    {"402", "402", 0, 17, 1, "", "", ""},
    {"403", "403", 0, 30, 1, "", "", ""},
    {"410", "417", 13, 0, 0, "", "", ""},
    {"420", "420", 0, 20, 1, "", "", ""},
    {"421", "421", 3, 9, 1, "", "", ""},
    {"422", "422", 3, 0, 1, "", "", ""},
    {"423", "423", 3, 12, 1, "", "", ""},
    {"424", "424", 3, 0, 1, "", "", ""},
    {"425", "425", 3, 12, 1, "", "", ""},
    {"426", "426", 3, 0, 1, "", "", ""},
    {"427", "427", 3, 3, 1, "", "", ""},
    {"7001", "7001", 0, 13, 1, "", "", ""},
    {"7002", "7002", 0, 30, 1, "", "", ""},
    {"7003", "7003", 10, 0, 1, "", "", ""},
    {"7004", "7004", 0, 4, 1, "", "", ""},
    {"7005", "7005", 0, 12, 1, "", "", ""},
    {"7006", "7006", 6, 0, 1, "", "", ""},
    {"7007", "7007", 6, 6, 1, "", "", ""},
    {"7008", "7008", 0, 3, 1, "", "", ""},
    {"7009", "7009", 0, 10, 1, "", "", ""},
    {"7010", "7010", 0, 2, 1, "", "", ""},
    {"7020", "7022", 0, 20, 1, "", "", ""},
    {"7023", "7023", 0, 30, 1, "", "", ""},
    {"703s", "703s", 3, 27, 1, "", "", ""},
    {"7040", "7040", 4, 0, 1, "", "", ""},
    {"710", "719", 0, 20, 1, "", "", ""},
    {"723s", "723s", 2, 28, 1, "", "", ""},
    {"7240", "7240", 0, 20, 1, "", "", ""},
    {"8001", "8001", 14, 0, 1, "", "", ""},
    {"8002", "8002", 0, 20, 1, "", "", ""},
    {"8003", "8003", 14, 16, 1, "", "", ""},
    {"8004", "8004", 0, 30, 1, "", "", ""},
    {"8005", "8005", 6, 0, 1, "", "", ""},
    {"8006", "8006", 18, 0, 1, "", "", ""},
    {"8007", "8007", 0, 34, 1, "", "", ""},
    {"8008", "8008", 8, 4, 1, "", "", ""},
    {"8009", "8009", 0, 50, 1, "", "", ""},
    {"8010", "8010", 0, 30, 1, "", "", ""},
    {"8011", "8011", 0, 12, 1, "", "", ""},
    {"8012", "8012", 0, 20, 1, "", "", ""},
    {"8013", "8013", 0, 30, 1, "", "", ""},
    {"8017", "8018", 18, 0, 1, "", "", ""},
    {"8019", "8019", 0, 10, 1, "", "", ""},
    {"8020", "8020", 0, 25, 1, "", "", ""},
    {"8026", "8026", 18, 0, 1, "", "", ""},
    {"8110", "8110", 0, 70, 1, "", "", ""},
    {"8111", "8111", 4, 0, 1, "", "", ""},
    {"8112", "8112", 0, 70, 1, "", "", ""},
    {"8200", "8200", 0, 70, 1, "", "", ""},
    {"90", "90", 0, 30, 1, "", "", ""},
    {"91", "99", 0, 90, 1, "", "", ""},
};

std::map<std::string, GS1IdSection> expandRuns() {
    std::map<std::string, GS1IdSection> table;
    for (const GS1IdRun& run : g_aGS1IdRuns) {
        const GS1IdSection row(run.fixedLength, run.variableLength, run.separator, run.code,
                               run.title, run.description, "");
        if (std::strcmp(run.first, run.last) == 0) {
            table.emplace(run.first, row);
            continue;
        }
        const int digits = static_cast<int>(std::strlen(run.first));
        const long last = std::strtol(run.last, nullptr, 10);
        for (long key = std::strtol(run.first, nullptr, 10); key <= last; ++key) {
            char name[8];
            std::snprintf(name, sizeof(name), "%0*ld", digits, key);
            table.emplace(name, row);
        }
    }
    return table;
}

}  // namespace

const std::map<std::string, GS1IdSection>& gs1IdTable() {
    // Built on first use rather than at load: most processes draw no GS1 data, and one that
    // draws a single barcode shouldn't pay for the table in its start.
    static const std::map<std::string, GS1IdSection> table = expandRuns();
    return table;
}
