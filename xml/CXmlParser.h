#pragma once

#include "resources/CMessage.h"
#include "xml/CFileIdentity.h"
#include "xml/CXmlHandler.h"
#include "xml/CXmlToken.h"
#include "xml/XmlEncoding.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

struct CIoProgress;

// The logbook's event-driven XML reader: a byte machine fed in chunks, whose states (State,
// below) name the part of the markup it is inside. It keeps no tree; start and end tags go to
// a stack of handlers (see CXmlHandler and Delegate).
class CXmlParser
{
public:
    // The parser reports to root until a handler delegates an element to another handler.
    explicit CXmlParser(CXmlHandler* root);
    ~CXmlParser();
    CXmlParser(const CXmlParser&) = delete;
    CXmlParser& operator=(const CXmlParser&) = delete;

    // Clears all state: encoding Utf8, State::BetweenTags, first-tag flag on, no error text.
    void Reset();

    // Reads a plain file in chunks. An unopenable file returns false with no error text.
    bool ParseFile(const std::string& path);
    // Reads a gzip file (zlib also reads an uncompressed file transparently), inflated on a
    // second thread while this one parses; the events are those of the text fed at once.
    bool ParseGzipFile(const std::string& path);
    // Where the file parses report their progress (bytes of the file read); null: nowhere.
    void SetProgress(CIoProgress* progress) { m_progress = progress; }
    // After a successful ParseFile or ParseGzipFile: the identity of the bytes read; unknown
    // otherwise.
    const CFileIdentity& GetFileIdentity() const { return m_fileIdentity; }
    // Parses Unicode text held in memory as Latin-1 (characters above 255 become '?').
    // An empty text returns true.
    bool ParseString(std::string_view text);

    // Push interface: Reset, then Feed chunks of any size, then Finish.
    // Feed returns false once the parse has stopped; Finish returns true only when every chunk
    // was accepted and every element was closed.
    bool Feed(const char* data, std::size_t size);
    bool Finish();

    // --- Accessors for handlers (valid during OnOpenTag/OnCloseTag) ---

    // The element's name, decoded.
    std::string_view GetElementName() const { return m_nameDecoded ? m_nameView : DecodeElementName(); }
    // The element's name as raw bytes.
    std::string_view GetElementNameRaw() const { return m_tagName.View(); }
    // The element's text, decoded (cut at line breaks as the reader does).
    const std::string& GetElementText() const;
    // The same text put into out: a copy fewer for a reader that keeps it.
    void GetElementText(std::string& out) const;
    // The element's text as raw bytes, for the 8-bit typed readers.
    std::string_view GetElementTextRaw() const { return m_text.View(); }
    // Decoded attribute value; false when absent.
    bool GetAttribute(std::string_view name, std::string& value) const;
    // True when the start tag carries the attribute.
    bool HasAttribute(std::string_view name) const;
    // Typed attribute values with the 8-bit conversions; false when absent or not convertible.
    bool GetAttributeBool(std::string_view name, bool& value) const;
    bool GetAttributeInt(std::string_view name, int& value, bool allowMinus) const;
    bool GetAttributeDouble(std::string_view name, double& value, bool allowMinus) const;
    // Number of attributes of the current start tag.
    std::size_t GetAttributeCount() const { return m_attrCount; }
    // Raw name and raw value of attribute index (0 .. GetAttributeCount() - 1), in file order.
    std::string_view GetAttributeNameRaw(std::size_t index) const { return m_attrs[index].name.View(); }
    std::string_view GetAttributeValueRaw(std::size_t index) const { return m_attrs[index].value.View(); }

    // Only inside OnOpenTag: the element just opened, its children and its end tag go to child.
    void Delegate(CXmlHandler* child);
    // Sets the message the user will see when the handler then returns false.
    void SetErrorMessage(CMessage message);
    // The message for a file the parser cannot read ("Parser error: %1" in English) around
    // detail; the parser and its handlers both report with it.
    static CMessage ParserError(std::string detail);
    // The error message of the last parse; empty when none was set.
    const CMessage& GetErrorMessage() const { return m_error; }

    // The encoding selected by the declaration (Utf8 until one says otherwise).
    XmlEncoding GetEncoding() const { return m_encoding; }
    // Number of open elements.
    std::size_t GetDepth() const { return m_stackSize; }

    // Limits that keep a hostile file from exhausting memory or time; exceeding one stops the
    // parse with an error text. Real logbooks stay far below the defaults. maxTokenBytes bounds
    // one token; one start tag with all its attributes, and the names of all open elements
    // together, get twice that; decoded text is at most twice its raw bytes. maxInputBytes
    // bounds the whole input, so that a small compressed file cannot keep the reader busy for
    // minutes or have it build records that fill the memory.
    void SetLimits(std::size_t maxTokenBytes, std::size_t maxDepth, std::size_t maxInputBytes = kDefaultMaxInputBytes);
    static constexpr std::size_t kDefaultMaxTokenBytes = 64u * 1024u * 1024u;
    static constexpr std::size_t kDefaultMaxDepth = 256;
    // The whole-input bound sits far above real logbooks: ten thousand jumps, each with a GPS
    // recording of 1,500 waypoints, come to under 2 GB. A compressed bomb still ends in seconds.
    static constexpr std::size_t kDefaultMaxInputBytes = std::size_t{2} * 1024u * 1024u * 1024u;
    // The most attributes one start tag may have (the logbook's elements have at most three).
    static constexpr std::size_t kMaxAttributes = 64;

    // Decodes raw 8-bit text (entities, UTF-8 or Latin-1 by encoding) to UTF-8 Unicode text,
    // appending to out.
    static void DecodeAppend(std::string_view raw, XmlEncoding encoding, std::string& out);
    static std::string Decode(std::string_view raw, XmlEncoding encoding);

private:
    // Where the byte machine is, that is which part of the markup the next byte belongs to.
    enum class State : unsigned char
    {
        BetweenTags,          // after a tag or a line break; tabs and line breaks are skipped
        TagName,              // after '<'
        EndTagName,           // after "</"
        EmptyTagEnd,          // after the '/' that closes a start tag, as in <a/>
        AfterAttributeValue,  // after an attribute value's closing quote
        BetweenAttributes,    // in a start tag, after its name or white space
        AttributeName,        // in an attribute's name
        BeforeAttributeValue, // after an attribute's name and '=', before the opening quote
        AttributeValue,       // inside an attribute value's quotes
        Text,                 // in an element's text
    };
    // One chunk and the machine's position in it (defined with ParseChunk).
    struct Cursor;

    struct Entry
    {
        std::string name;
        CXmlHandler* handler;
    };
    struct Attribute
    {
        CXmlToken name;
        CXmlToken value;
    };

    // closesAtOnce: the tag ends with "/>", so its end is reported right after it and the
    // stack entry needs no copy of the name.
    [[gnu::always_inline]] inline bool OpenTag(bool closesAtOnce);
    // ownStart: the end of the empty tag whose start was just pushed, so the top entry is its
    // own and the name decoded for the start still holds.
    [[gnu::always_inline]] inline bool CloseTag(bool ownStart);
    bool ReportStartTag();
    bool ReportEndTag();
    bool ReportEmptyTag();
    // Kept out of the report functions, which run for every tag.
    [[gnu::cold]] void ReadDeclaration();
    [[gnu::cold]] void DescribeFailedOpenTag();
    [[gnu::cold]] void DescribeFailedCloseTag();
    std::string_view DecodeElementName() const;
    inline const Attribute* FindAttribute(std::string_view name) const;
    bool ParseChunk(const char* data, std::size_t size);
    // One function per state: each reads on from c.pos (at least one byte unless the chunk
    // ends there) and sets c.state to the state of the next byte; false stops the parse. Where
    // a tag goes on in the same chunk, a function reads on in the next state's function itself
    // (a tag's name into its attributes, an attribute's name into its value and on to the
    // tag's end), so that a tag costs one or two rounds of the chunk loop; those calls only
    // lead forward through a tag, never back to where they came from. The functions and their
    // helpers are inline, defined and used only in ParseChunk's file, so that the chunk loop
    // stays one tight loop.
    [[gnu::always_inline]] inline bool ScanBetweenTags(Cursor& c);
    [[gnu::always_inline]] inline bool ScanTagName(Cursor& c);
    [[gnu::always_inline]] inline bool ScanEndTagName(Cursor& c);
    [[gnu::always_inline]] inline bool ScanEmptyTagEnd(Cursor& c);
    [[gnu::always_inline]] inline bool ScanAfterAttributeValue(Cursor& c);
    [[gnu::always_inline]] inline bool ScanBetweenAttributes(Cursor& c);
    [[gnu::always_inline]] inline bool ScanAttributeName(Cursor& c);
    [[gnu::always_inline]] inline bool ScanBeforeAttributeValue(Cursor& c);
    [[gnu::always_inline]] inline bool ScanAttributeValue(Cursor& c);
    [[gnu::always_inline]] inline bool ScanText(Cursor& c);
    inline bool TokenTooLong(const Cursor& c) const;
    inline void Capture(Cursor& c, CXmlToken& target);
    inline bool EndStartTag();
    bool StopTokenTooLong();
    [[gnu::always_inline]] inline void StoreAttribute(const char* data, std::size_t mark, std::size_t pos);
    void DetachTokens();
    // Stops the parse for a start tag with more than kMaxAttributes attributes or longer than
    // twice a token, whichever it exceeds.
    bool StopStartTagTooLarge();
    void ReleaseLargeBuffers();
    bool Stop(CMessage error);
    bool ParseWholeFile(const std::string& path, bool gzip);

    CXmlHandler* m_root;
    XmlEncoding m_encoding = Utf8;
    State m_state = State::BetweenTags;
    bool m_firstTag = true;
    bool m_stopped = false;
    bool m_delegateAllowed = false;

    CXmlToken m_tagName;
    std::vector<Attribute> m_attrs; // reused between tags; m_attrCount are in use
    std::size_t m_attrCount = 0;
    std::size_t m_attrBytes = 0; // names and values of the m_attrCount attributes together
    CXmlToken m_text;
    std::string m_carry;
    bool m_markPending = false; // a token continues at the start of the next chunk
    std::vector<Entry> m_stack; // entries beyond m_stackSize are spare, kept for their buffers
    std::size_t m_stackSize = 0;
    CMessage m_error;

    // Decoded forms are made on request, once per report; plain ASCII needs no copy at all.
    mutable std::string m_decodedName;
    mutable std::string_view m_nameView;
    mutable bool m_nameDecoded = false;
    mutable std::string m_decodedText;
    mutable const std::string* m_textView = nullptr;

    std::size_t m_maxToken = kDefaultMaxTokenBytes;
    std::size_t m_maxDepth = kDefaultMaxDepth;
    std::size_t m_maxInput = kDefaultMaxInputBytes;
    std::size_t m_inputBytes = 0;     // fed since the last Reset
    std::size_t m_stackNameBytes = 0; // names of the open elements together

    CIoProgress* m_progress = nullptr;
    CFileIdentity m_fileIdentity;
};
