#include "xml/CXmlWriter.h"

#include "xml/CXmlFileOutput.h"
#include "xml/CXmlGzipOutput.h"
#include "xml/XmlUtf8.h"

#include <array>

namespace {

// Pending bytes are handed to the output once this many have collected.
constexpr std::size_t kBlockSize = 64 * 1024;

constexpr char kHex[] = "0123456789ABCDEF";

// ASCII bytes that the escaper must look at; everything else in 32..126 is copied as it is.
constexpr std::array<bool, 256> MakeSpecial()
{
    std::array<bool, 256> table{};
    for (int c = 0; c < 256; ++c)
        table[c] = c < 32 || c >= 127 || c == '&' || c == '<' || c == '>' || c == '"' || c == '\'';
    return table;
}
constexpr std::array<bool, 256> kSpecial = MakeSpecial();

// "&#xHH;" for codes below 256, "&#xHHHH;" for 16-bit codes.
void AppendReference(std::string& out, std::uint32_t code, bool fourDigits)
{
    char buffer[8] = {'&', '#', 'x'};
    std::size_t n = 3;
    if (fourDigits) {
        buffer[n++] = kHex[(code >> 12) & 0xF];
        buffer[n++] = kHex[(code >> 8) & 0xF];
    }
    buffer[n++] = kHex[(code >> 4) & 0xF];
    buffer[n++] = kHex[code & 0xF];
    buffer[n++] = ';';
    out.append(buffer, n);
}

} // namespace

CXmlWriter::CXmlWriter(XmlEncoding encoding, XmlOutputKind kind, unsigned options)
    : m_encoding(encoding), m_kind(kind), m_options(options)
{
}

CXmlWriter::~CXmlWriter()
{
    if (m_out) {
        Flush();
        m_out->Close();
    }
}

bool CXmlWriter::Open(const std::string& path)
{
    std::unique_ptr<IXmlOutput> output;
    if (m_kind == XmlGzipFile)
        output = CXmlGzipOutput::Create(path);
    else
        output = CXmlFileOutput::Create(path);
    if (!output)
        return false;
    return Open(std::move(output));
}

bool CXmlWriter::Open(std::unique_ptr<IXmlOutput> output)
{
    if (!output)
        return false;
    if (m_out) {
        Flush();
        m_out->Close();
    }
    m_out = std::move(output);
    m_stack.clear();
    m_buffer.clear();
    m_buffer.reserve(kBlockSize + 4096);
    m_failed = false;
    Raw(m_encoding == Utf8 ? "<?xml version=\"1.0\" encoding=\"UTF-8\" ?>"
                           : "<?xml version=\"1.0\" encoding=\"ISO-8859-1\" ?>");
    return true;
}

void CXmlWriter::WriteElement(std::string_view name, std::string_view text)
{
    if (!m_out || (text.empty() && (m_options & SkipEmpty) != 0))
        return;
    ElementWithAttributes(name, text, nullptr, 0);
}

void CXmlWriter::WriteElement(std::string_view name, std::string_view text, std::initializer_list<Attr> attrs)
{
    ElementWithAttributes(name, text, attrs.begin(), attrs.size());
}

void CXmlWriter::WriteElement(std::string_view name, std::string_view text, std::string_view a1, std::string_view v1)
{
    const Attr attrs[] = {{a1, v1}};
    ElementWithAttributes(name, text, attrs, 1);
}

void CXmlWriter::WriteElement(std::string_view name, std::string_view text, std::string_view a1, std::string_view v1,
                              std::string_view a2, std::string_view v2)
{
    const Attr attrs[] = {{a1, v1}, {a2, v2}};
    ElementWithAttributes(name, text, attrs, 2);
}

void CXmlWriter::StartElement(std::string_view name)
{
    StartWithAttributes(name, nullptr, 0);
}

void CXmlWriter::StartElement(std::string_view name, std::string_view attr, std::string_view value)
{
    const Attr attrs[] = {{attr, value}};
    StartWithAttributes(name, attrs, 1);
}

void CXmlWriter::StartElement(std::string_view name, std::initializer_list<Attr> attrs)
{
    StartWithAttributes(name, attrs.begin(), attrs.size());
}

void CXmlWriter::EndElement()
{
    if (!m_out || m_stack.empty())
        return;
    const std::string name = std::move(m_stack.back());
    m_stack.pop_back();
    Indent();
    m_buffer += "</";
    m_buffer += name;
    m_buffer += '>';
    FlushIfFull();
}

bool CXmlWriter::Close()
{
    if (!m_out)
        return !m_failed;
    while (!m_stack.empty())
        EndElement();
    if ((m_options & Compact) == 0)
        Raw("\r\n");
    Flush();
    if (!m_out->Close())
        m_failed = true;
    m_out.reset();
    return !m_failed;
}

void CXmlWriter::ElementWithAttributes(std::string_view name, std::string_view text, const Attr* attrs,
                                       std::size_t count)
{
    if (!m_out)
        return;
    Indent();
    m_buffer += '<';
    m_buffer += name;
    Attributes(attrs, count);
    if (text.empty()) {
        m_buffer += "/>";
    } else {
        m_buffer += '>';
        EscapeAppend(text, m_encoding, m_buffer);
        m_buffer += "</";
        m_buffer += name;
        m_buffer += '>';
    }
    FlushIfFull();
}

void CXmlWriter::StartWithAttributes(std::string_view name, const Attr* attrs, std::size_t count)
{
    if (!m_out)
        return;
    Indent();
    m_buffer += '<';
    m_buffer += name;
    Attributes(attrs, count);
    m_buffer += '>';
    m_stack.emplace_back(name);
    FlushIfFull();
}

void CXmlWriter::Attributes(const Attr* attrs, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i) {
        if (attrs[i].first.empty())
            continue;
        m_buffer += ' ';
        m_buffer += attrs[i].first;
        m_buffer += "=\"";
        EscapeAppend(attrs[i].second, m_encoding, m_buffer);
        m_buffer += '"';
    }
}

void CXmlWriter::Indent()
{
    if ((m_options & Compact) != 0)
        return;
    m_buffer += "\r\n";
    m_buffer.append(2 * m_stack.size(), ' ');
}

void CXmlWriter::Raw(std::string_view bytes)
{
    if (!m_out || bytes.empty())
        return;
    m_buffer += bytes;
    FlushIfFull();
}

void CXmlWriter::Escaped(std::string_view text)
{
    if (!m_out)
        return;
    EscapeAppend(text, m_encoding, m_buffer);
    FlushIfFull();
}

void CXmlWriter::FlushIfFull()
{
    if (m_buffer.size() >= kBlockSize)
        Flush();
}

void CXmlWriter::Flush()
{
    if (m_buffer.empty())
        return;
    // After a failure the file is lost anyway; later bytes are dropped.
    if (!m_failed && !m_out->Write(m_buffer.data(), m_buffer.size()))
        m_failed = true;
    m_buffer.clear();
}

void CXmlWriter::EscapeAppend(std::string_view text, XmlEncoding encoding, std::string& out)
{
    // A lone blank would read back as layout, so it is written as a reference.
    if (text == " ") {
        out += "&#x20;";
        return;
    }
    const auto* p = reinterpret_cast<const unsigned char*>(text.data());
    const auto* end = p + text.size();
    while (p < end) {
        const auto* run = p;
        while (p < end && !kSpecial[*p])
            ++p;
        if (p > run)
            out.append(reinterpret_cast<const char*>(run), static_cast<std::size_t>(p - run));
        if (p == end)
            break;
        std::uint32_t c = XmlUtf8::NextCodePoint(p, end);
        if (c == XmlUtf8::kInvalid)
            c = '?';
        if (c < 32) {
            AppendReference(out, c, false);
        } else if (c < 256) {
            switch (c) {
            case '&':
                out += "&amp;";
                break;
            case '<':
                out += "&lt;";
                break;
            case '>':
                out += "&gt;";
                break;
            case '"':
                out += "&quot;";
                break;
            case '\'':
                out += "&apos;";
                break;
            default:
                if (c > 127 && encoding == Utf8) {
                    out += static_cast<char>(0xC0 | (c >> 6));
                    out += static_cast<char>(0x80 | (c & 0x3F));
                } else {
                    out += static_cast<char>(c);
                }
            }
        } else if (c <= 0xFFFF) {
            AppendReference(out, c, true);
        } else {
            // Beyond 16 bits: the UTF-16 pair, which the reader joins again.
            const std::uint32_t v = c - 0x10000;
            AppendReference(out, 0xD800 + (v >> 10), true);
            AppendReference(out, 0xDC00 + (v & 0x3FF), true);
        }
    }
}
