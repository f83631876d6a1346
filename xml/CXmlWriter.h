#pragma once

#include "xml/IXmlOutput.h"
#include "xml/XmlEncoding.h"

#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

// Writer options, a bit set.
enum WriterOptions : unsigned
{
    Compact = 1,
    SkipEmpty = 2
};
// Output kinds.
enum XmlOutputKind
{
    XmlPlainFile = 0,
    XmlGzipFile = 1
};

// Writes the logbook XML element by element to a plain file or a gzip stream (level 9),
// escaping text and encoding characters as UTF-8 or Latin-1.
class CXmlWriter
{
public:
    using Attr = std::pair<std::string_view, std::string_view>;

    CXmlWriter(XmlEncoding encoding, XmlOutputKind kind, unsigned options);
    // Closes the output without finishing open elements.
    ~CXmlWriter();
    CXmlWriter(const CXmlWriter&) = delete;
    CXmlWriter& operator=(const CXmlWriter&) = delete;

    // Creates the file (gzip "wb9" or plain) and writes the declaration. False: nothing written.
    bool Open(const std::string& path);
    // Writes into the given output instead of a file, then the declaration.
    bool Open(std::unique_ptr<IXmlOutput> output);

    // A text-only element; with SkipEmpty an empty text writes nothing.
    void WriteElement(std::string_view name, std::string_view text);
    // An element with attributes (empty names are skipped); "/>" when text is empty.
    void WriteElement(std::string_view name, std::string_view text, std::initializer_list<Attr> attrs);
    void WriteElement(std::string_view name, std::string_view text, std::string_view a1, std::string_view v1);
    void WriteElement(std::string_view name, std::string_view text, std::string_view a1, std::string_view v1,
                      std::string_view a2, std::string_view v2);
    // Opens an element that will hold children; pushes its name.
    void StartElement(std::string_view name);
    void StartElement(std::string_view name, std::string_view attr, std::string_view value);
    void StartElement(std::string_view name, std::initializer_list<Attr> attrs);
    // Closes the innermost open element; nothing when none is open.
    void EndElement();
    // Ends every open element, closes the output. False when any write since Open failed.
    bool Close();

    // True once any write has failed; the file is then not to be trusted.
    bool Failed() const { return m_failed; }
    bool IsOpen() const { return static_cast<bool>(m_out); }
    std::size_t GetDepth() const { return m_stack.size(); }

    // Escapes and encodes Unicode text (UTF-8 in) as the writer would, appending to out.
    static void EscapeAppend(std::string_view text, XmlEncoding encoding, std::string& out);

private:
    void Indent();
    void Raw(std::string_view bytes);
    void Escaped(std::string_view text);
    void Attributes(const Attr* attrs, std::size_t count);
    void ElementWithAttributes(std::string_view name, std::string_view text, const Attr* attrs, std::size_t count);
    void StartWithAttributes(std::string_view name, const Attr* attrs, std::size_t count);
    void FlushIfFull();
    void Flush();

    XmlEncoding m_encoding;
    XmlOutputKind m_kind;
    unsigned m_options;
    std::unique_ptr<IXmlOutput> m_out;
    std::vector<std::string> m_stack;
    std::string m_buffer; // pending bytes, handed to the output in large blocks
    bool m_failed = false;
};
