// Writes the string table as a C++ source that lupdate reads: one QT_TRANSLATE_NOOP3 per message,
// in the context "StringTable" with the English text as the source and the message's number as
// the disambiguation. Generated at build time from the table itself, so the messages are never
// listed a second time by hand. Plain C++: no Qt needed.
// Usage: tervola_string_table_sources <output.cpp>

#include "resources/StringTable.h"

#include <cstdio>
#include <fstream>
#include <sstream>
#include <string>
#include <string_view>

namespace {

// The text as a C++ string literal.
std::string Literal(std::string_view text)
{
    std::string out = "\"";
    for (const char c : text) {
        if (c == '"' || c == '\\')
            out += '\\';
        if (static_cast<unsigned char>(c) < 0x20) {
            char escaped[8];
            std::snprintf(escaped, sizeof escaped, "\\%03o", static_cast<unsigned>(static_cast<unsigned char>(c)));
            out += escaped;
            continue;
        }
        out += c;
    }
    return out + '"';
}

} // namespace

int main(int argc, char* argv[])
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s <output.cpp>\n", argv[0]);
        return 2;
    }
    std::ostringstream source;
    source << "// Generated from resources/StringTable.cpp by tervola_string_table_sources; read by lupdate.\n"
              "#include <QtGlobal>\n\n"
              "[[maybe_unused]] static const struct { const char* source; const char* comment; } kStringTable[] = {\n";
    for (const int id : StringTable::Ids())
        source << "    QT_TRANSLATE_NOOP3(\"StringTable\", " << Literal(StringTable::Text(id)) << ", \"" << id
               << "\"),\n";
    source << "};\n";

    const std::string text = source.str();
    std::ofstream out(argv[1], std::ios::binary | std::ios::trunc);
    out << text;
    return out ? 0 : 1;
}
