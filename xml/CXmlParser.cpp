#include "xml/CXmlParser.h"

#include "xml/CFileReadAhead.h"
#include "xml/CXmlDecoder.h"
#include "xml/XmlNameBytes.h"
#include "xml/XmlUtf8.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <memory>

using XmlNameBytes::SameBytes;

namespace {

constexpr std::size_t kNone = static_cast<std::size_t>(-1);
// Spare token and stack buffers kept for reuse give back anything beyond this.
constexpr std::size_t kKeepBytes = 4096;

using ByteTable = std::array<bool, 256>;

constexpr ByteTable MakeTable(std::initializer_list<unsigned char> bytes)
{
    ByteTable table{};
    for (unsigned char b : bytes)
        table[b] = true;
    return table;
}

// Bytes that end a run in the tag-name state, the attribute-name state and the text state.
constexpr ByteTable kTagNameStop = MakeTable({9, 10, 13, 32, '/', '>'});
constexpr ByteTable kAttrNameStop = MakeTable({'=', '>'});
constexpr ByteTable kTextStop = MakeTable({10, 13, '<'});

bool IsSpace(unsigned char c)
{
    return c == 9 || c == 10 || c == 13 || c == 32;
}

// Raw bytes shown as characters of the 8-bit code page (Latin-1), for error texts.
void AppendLatin1(std::string& out, std::string_view raw)
{
    for (unsigned char c : raw)
        XmlUtf8::Append(out, c);
}

} // namespace

CXmlParser::CXmlParser(CXmlHandler* root) : m_root(root)
{
}

CXmlParser::~CXmlParser() = default;

void CXmlParser::Reset()
{
    m_encoding = Utf8;
    m_state = State::BetweenTags;
    m_firstTag = true;
    m_stopped = false;
    m_delegateAllowed = false;
    m_tagName.Clear();
    m_attrCount = 0;
    m_attrBytes = 0;
    m_text.Clear();
    m_carry.clear();
    m_markPending = false;
    m_stackSize = 0;
    m_error = {};
    m_nameDecoded = false;
    m_textView = nullptr;
    m_inputBytes = 0;
    m_stackNameBytes = 0;
    ReleaseLargeBuffers();
}

void CXmlParser::SetLimits(std::size_t maxTokenBytes, std::size_t maxDepth, std::size_t maxInputBytes)
{
    m_maxToken = maxTokenBytes;
    m_maxDepth = maxDepth;
    m_maxInput = maxInputBytes;
}

bool CXmlParser::Stop(CMessage error)
{
    m_error = std::move(error);
    m_stopped = true;
    return false;
}

bool CXmlParser::Feed(const char* data, std::size_t size)
{
    if (m_stopped)
        return false;
    // Only the bytes within the input limit are parsed, so the events before the limit is
    // reached do not depend on how the input was cut into chunks.
    const std::size_t room = m_maxInput - std::min(m_inputBytes, m_maxInput);
    const bool beyond = size > room;
    m_inputBytes += beyond ? room : size;
    bool ok = ParseChunk(data, beyond ? room : size);
    if (ok && beyond)
        ok = Stop(ParserError("input longer than " + std::to_string(m_maxInput) + " bytes"));
    if (!ok) {
        // Tokens may still point into the caller's chunk; a stopped parse forgets them.
        m_tagName.Clear();
        m_text.Clear();
        m_attrCount = 0;
        m_attrBytes = 0;
        m_stopped = true;
        return false;
    }
    return true;
}

bool CXmlParser::Finish()
{
    return !m_stopped && m_stackSize == 0;
}

bool CXmlParser::ParseWholeFile(const std::string& path, bool gzip)
{
    m_fileIdentity = CFileIdentity();
    CFileReadAhead reader(m_progress);
    if (!reader.Open(path, gzip)) {
        Reset();
        return false;
    }
    Reset();
    bool ok = true;
    const char* data = nullptr;
    std::size_t size = 0;
    while (reader.Next(data, size)) {
        if (!Feed(data, size)) {
            ok = false;
            break;
        }
    }
    reader.Stop();
    ok = ok && reader.Succeeded() && Finish();
    if (ok)
        m_fileIdentity = reader.Identity();
    return ok;
}

bool CXmlParser::ParseFile(const std::string& path)
{
    return ParseWholeFile(path, false);
}

bool CXmlParser::ParseGzipFile(const std::string& path)
{
    return ParseWholeFile(path, true);
}

bool CXmlParser::ParseString(std::string_view text)
{
    if (text.empty())
        return true;
    // The text goes through the 8-bit code page: Latin-1 here, '?' for anything beyond it.
    std::string bytes;
    bytes.reserve(text.size());
    const auto* p = reinterpret_cast<const unsigned char*>(text.data());
    const auto* end = p + text.size();
    while (p < end) {
        const std::uint32_t cp = XmlUtf8::NextCodePoint(p, end);
        bytes += cp <= 0xFF ? static_cast<char>(cp) : '?';
    }
    Reset();
    m_encoding = Latin1;
    Feed(bytes.data(), bytes.size());
    return Finish();
}

struct CXmlParser::Cursor
{
    const char* data;
    const unsigned char* bytes; // data, read as bytes
    std::size_t size;
    std::size_t pos;  // the next byte to read
    std::size_t mark; // the first byte of the token being read, kNone outside a token
    State state;
};

// The byte machine. A token (tag name, attribute name or value, text) runs from the mark to
// the byte that ends it; when a chunk ends inside a token, its bytes so far move to the carry
// buffer and the token continues at the start of the next chunk. Long runs inside a state are
// skipped with memchr or a byte table, so the per-byte cost is a table look-up at most.
// The state functions are inlined here, so the cursor stays in registers.
bool CXmlParser::ParseChunk(const char* data, std::size_t size)
{
    Cursor c{data, reinterpret_cast<const unsigned char*>(data), size, 0, m_markPending ? 0 : kNone, m_state};
    m_markPending = false;
    while (c.pos < c.size) {
        bool ok = false;
        switch (c.state) {
        case State::BetweenTags:
            ok = ScanBetweenTags(c);
            break;
        case State::TagName:
            ok = ScanTagName(c);
            break;
        case State::EndTagName:
            ok = ScanEndTagName(c);
            break;
        case State::EmptyTagEnd:
            ok = ScanEmptyTagEnd(c);
            break;
        case State::AfterAttributeValue:
            ok = ScanAfterAttributeValue(c);
            break;
        case State::BetweenAttributes:
            ok = ScanBetweenAttributes(c);
            break;
        case State::AttributeName:
            ok = ScanAttributeName(c);
            break;
        case State::BeforeAttributeValue:
            ok = ScanBeforeAttributeValue(c);
            break;
        case State::AttributeValue:
            ok = ScanAttributeValue(c);
            break;
        case State::Text:
            ok = ScanText(c);
            break;
        }
        if (!ok)
            return false;
    }

    m_state = c.state;
    DetachTokens();
    if (c.mark != kNone) {
        m_carry.append(data + c.mark, size - c.mark);
        m_markPending = true;
        if (m_carry.size() > m_maxToken)
            return StopTokenTooLong();
    }
    return true;
}

// Measured with callgrind before it stayed so plain: a per-chunk "no token can reach the limit"
// flag, in the cursor or in a member, or dropping the mark test where the mark is known, each
// made the compiler keep the cursor in memory and cost the whole loop about a tenth more.
inline bool CXmlParser::TokenTooLong(const Cursor& c) const
{
    return c.mark != kNone && m_carry.size() + (c.pos - c.mark) > m_maxToken;
}

bool CXmlParser::StopTokenTooLong()
{
    return Stop(ParserError("token longer than " + std::to_string(m_maxToken) + " bytes"));
}

// Takes the token from the mark to c.pos (after the carry) into target.
inline void CXmlParser::Capture(Cursor& c, CXmlToken& target)
{
    if (m_carry.empty())
        target.SetView(c.data + c.mark, c.pos - c.mark);
    else
        target.SetJoined(m_carry, c.data + c.mark, c.pos - c.mark);
    c.mark = kNone;
}

inline bool CXmlParser::EndStartTag()
{
    const bool ok = ReportStartTag();
    m_tagName.Clear();
    m_attrCount = 0;
    m_attrBytes = 0;
    return ok;
}

namespace {

// Moves pos to the next byte b of the chunk, or to its end; true when b was found.
inline bool SkipTo(const unsigned char* bytes, std::size_t size, std::size_t& pos, unsigned char b)
{
    // The quotes and the '>' looked for are mostly a few bytes away, nearer than a call to
    // memchr pays off.
    std::size_t p = pos;
    for (const std::size_t near = std::min(size, p + 8); p < near; ++p)
        if (bytes[p] == b) {
            pos = p;
            return true;
        }
    const void* hit = std::memchr(bytes + p, b, size - p);
    if (hit == nullptr) {
        pos = size;
        return false;
    }
    pos = static_cast<std::size_t>(static_cast<const unsigned char*>(hit) - bytes);
    return true;
}

// Moves pos to the next byte of the chunk that stop marks, or to its end.
inline void SkipUntil(const unsigned char* bytes, std::size_t size, std::size_t& pos, const ByteTable& stop)
{
    std::size_t p = pos;
    while (p < size && !stop[bytes[p]])
        ++p;
    pos = p;
}

} // namespace

// Tabs and line breaks are skipped; a space may begin the text, anything else but '<' does.
inline bool CXmlParser::ScanBetweenTags(Cursor& c)
{
    for (; c.pos < c.size; ++c.pos) {
        const unsigned char b = c.bytes[c.pos];
        if (b == ' ') {
            if (c.mark == kNone)
                c.mark = c.pos;
        } else if (b == '<') {
            // Spaces alone before a tag are no text, but count towards the token limit.
            if (TokenTooLong(c))
                return StopTokenTooLong();
            c.mark = c.pos + 1;
            m_carry.clear();
            c.state = State::TagName;
            ++c.pos;
            return ScanTagName(c);
        } else if (b != 9 && b != 10 && b != 13) {
            if (c.mark == kNone)
                c.mark = c.pos;
            c.state = State::Text;
            ++c.pos;
            return true;
        }
    }
    return true;
}

inline bool CXmlParser::ScanTagName(Cursor& c)
{
    SkipUntil(c.bytes, c.size, c.pos, kTagNameStop);
    if (c.pos == c.size)
        return true;
    const unsigned char b = c.bytes[c.pos];
    if (b == '/' && c.pos == c.mark && m_carry.empty()) {
        c.mark = c.pos + 1;
        c.state = State::EndTagName;
        ++c.pos;
        return ScanEndTagName(c);
    }
    if (TokenTooLong(c))
        return StopTokenTooLong();
    Capture(c, m_tagName);
    ++c.pos;
    if (b == '>') {
        c.state = State::BetweenTags;
        return EndStartTag();
    }
    c.state = b == '/' ? State::EmptyTagEnd : State::BetweenAttributes;
    if (c.pos == c.size)
        return true;
    return b == '/' ? ScanEmptyTagEnd(c) : ScanBetweenAttributes(c);
}

inline bool CXmlParser::ScanEndTagName(Cursor& c)
{
    if (!SkipTo(c.bytes, c.size, c.pos, '>'))
        return true;
    if (TokenTooLong(c))
        return StopTokenTooLong();
    Capture(c, m_tagName);
    ++c.pos;
    c.state = State::BetweenTags;
    const bool ok = ReportEndTag();
    m_tagName.Clear();
    m_text.Clear();
    return ok;
}

// Only '>' may follow.
inline bool CXmlParser::ScanEmptyTagEnd(Cursor& c)
{
    if (c.bytes[c.pos] != '>')
        return false;
    ++c.pos;
    c.state = State::BetweenTags;
    return ReportEmptyTag();
}

// Bytes other than white space, '/' and '>' are skipped.
inline bool CXmlParser::ScanAfterAttributeValue(Cursor& c)
{
    const unsigned char b = c.bytes[c.pos++];
    if (IsSpace(b)) {
        c.state = State::BetweenAttributes;
    } else if (b == '/') {
        c.state = State::EmptyTagEnd;
        return c.pos == c.size || ScanEmptyTagEnd(c);
    } else if (b == '>') {
        c.state = State::BetweenTags;
        return EndStartTag();
    }
    return true;
}

inline bool CXmlParser::ScanBetweenAttributes(Cursor& c)
{
    const unsigned char b = c.bytes[c.pos];
    if (b == '>') {
        ++c.pos;
        c.state = State::BetweenTags;
        return EndStartTag();
    }
    ++c.pos;
    if (!IsSpace(b)) {
        c.mark = c.pos - 1;
        c.state = State::AttributeName;
        return ScanAttributeName(c);
    }
    return true;
}

inline bool CXmlParser::ScanAttributeName(Cursor& c)
{
    SkipUntil(c.bytes, c.size, c.pos, kAttrNameStop);
    if (c.pos == c.size)
        return true;
    if (TokenTooLong(c))
        return StopTokenTooLong();
    if (c.bytes[c.pos] == '>') {
        // '>' ends the tag; the partial name is dropped.
        c.mark = kNone;
        m_carry.clear();
        ++c.pos;
        c.state = State::BetweenTags;
        return EndStartTag();
    }
    // The name goes straight into the next free slot; StoreAttribute keeps or reuses it.
    if (m_attrCount == m_attrs.size())
        m_attrs.emplace_back();
    Capture(c, m_attrs[m_attrCount].name);
    ++c.pos;
    c.state = State::BeforeAttributeValue;
    return ScanBeforeAttributeValue(c);
}

// Anything up to the opening quote is skipped.
inline bool CXmlParser::ScanBeforeAttributeValue(Cursor& c)
{
    if (!SkipTo(c.bytes, c.size, c.pos, '"'))
        return true;
    c.mark = ++c.pos;
    c.state = State::AttributeValue;
    return ScanAttributeValue(c);
}

inline bool CXmlParser::ScanAttributeValue(Cursor& c)
{
    if (!SkipTo(c.bytes, c.size, c.pos, '"'))
        return true;
    if (TokenTooLong(c))
        return StopTokenTooLong();
    StoreAttribute(c.data, c.mark, c.pos);
    if (m_attrCount > kMaxAttributes || m_tagName.Size() + m_attrBytes > 2 * m_maxToken)
        return StopStartTagTooLarge();
    c.mark = kNone;
    ++c.pos;
    c.state = State::AfterAttributeValue;
    return c.pos == c.size || ScanAfterAttributeValue(c);
}

// Text ends at a line break, which the reader drops, or at the next tag.
inline bool CXmlParser::ScanText(Cursor& c)
{
    SkipUntil(c.bytes, c.size, c.pos, kTextStop);
    if (c.pos == c.size)
        return true;
    if (TokenTooLong(c))
        return StopTokenTooLong();
    Capture(c, m_text);
    const bool tag = c.bytes[c.pos] == '<';
    ++c.pos;
    if (!tag) {
        c.state = State::BetweenTags;
        return true;
    }
    c.mark = c.pos;
    c.state = State::TagName;
    return ScanTagName(c);
}

inline void CXmlParser::StoreAttribute(const char* data, std::size_t mark, std::size_t pos)
{
    // The name was captured into slot m_attrCount; a later duplicate overwrites the earlier value.
    Attribute* slot = &m_attrs[m_attrCount];
    for (std::size_t i = 0; i < m_attrCount; ++i)
        if (SameBytes(m_attrs[i].name.View(), slot->name.View())) {
            slot = &m_attrs[i];
            break;
        }
    if (slot == &m_attrs[m_attrCount]) {
        ++m_attrCount;
        m_attrBytes += slot->name.Size();
    } else {
        m_attrBytes -= slot->value.Size();
    }
    m_attrBytes += m_carry.size() + (pos - mark);
    if (m_carry.empty())
        slot->value.SetView(data + mark, pos - mark);
    else
        slot->value.SetJoined(m_carry, data + mark, pos - mark);
}

// Every token still needed after this chunk gets its own copy: the tag name, the element text
// (it stays until an end tag clears it), the attributes of an unfinished start tag and, while
// a value is awaited, the name in the next free slot.
void CXmlParser::DetachTokens()
{
    m_tagName.Detach();
    m_text.Detach();
    for (std::size_t i = 0; i < m_attrCount; ++i) {
        m_attrs[i].name.Detach();
        m_attrs[i].value.Detach();
    }
    const bool awaitingValue = m_state == State::BeforeAttributeValue || m_state == State::AttributeValue;
    if (awaitingValue && m_attrCount < m_attrs.size())
        m_attrs[m_attrCount].name.Detach();
    ReleaseLargeBuffers();
}

// A start tag's attributes are all kept until the tag ends, so their number is bounded and,
// together with the tag name, their size: to twice a token's, so that a token of the largest
// size still fits with its names around it.
bool CXmlParser::StopStartTagTooLarge()
{
    if (m_attrCount > kMaxAttributes)
        return Stop(ParserError("more than " + std::to_string(kMaxAttributes) + " attributes in one start tag"));
    return Stop(ParserError("start tag longer than " + std::to_string(2 * m_maxToken) + " bytes"));
}

// Spare attribute slots and stack entries are kept for their buffers; one that a long token
// made large gives its buffer back, so that the spares cannot add up beyond the limits.
void CXmlParser::ReleaseLargeBuffers()
{
    const bool awaitingValue = m_state == State::BeforeAttributeValue || m_state == State::AttributeValue;
    const std::size_t firstSpare = m_attrCount + (awaitingValue ? 1 : 0);
    for (std::size_t i = firstSpare; i < m_attrs.size(); ++i) {
        m_attrs[i].name.Release(kKeepBytes);
        m_attrs[i].value.Release(kKeepBytes);
    }
    for (std::size_t i = m_stackSize; i < m_stack.size(); ++i)
        if (m_stack[i].name.capacity() > kKeepBytes)
            std::string().swap(m_stack[i].name);
}

// The declaration's encoding decides how the bytes of names, texts and values are read.
void CXmlParser::ReadDeclaration()
{
    std::string encoding;
    if (GetAttribute("encoding", encoding)) {
        std::string upper = encoding;
        for (char& c : upper)
            if (c >= 'a' && c <= 'z')
                c = static_cast<char>(c - 'a' + 'A');
        if (upper == "UTF-8")
            m_encoding = Utf8;
        else if (encoding == "ISO-8859-1")
            m_encoding = Latin1;
    }
}

// A handler refused the tag without a message of its own: the tag and its attributes are named.
void CXmlParser::DescribeFailedOpenTag()
{
    std::string detail = "Open Tag: ";
    detail += GetElementName();
    if (m_attrCount > 0) {
        detail += ',';
        // Listed in name order, as the attribute map keeps them.
        std::vector<const Attribute*> sorted;
        for (std::size_t i = 0; i < m_attrCount; ++i)
            sorted.push_back(&m_attrs[i]);
        std::sort(sorted.begin(), sorted.end(),
                  [](const Attribute* a, const Attribute* b) { return a->name.View() < b->name.View(); });
        for (const Attribute* attr : sorted) {
            detail += ' ';
            DecodeAppend(attr->name.View(), m_encoding, detail);
            detail += "=\"";
            AppendLatin1(detail, attr->value.View());
            detail += '"';
        }
    }
    m_error = ParserError(std::move(detail));
}

void CXmlParser::DescribeFailedCloseTag()
{
    std::string detail = "Close Tag: ";
    detail += GetElementName();
    if (!m_text.Empty()) {
        detail += ", ";
        detail += GetElementText();
    }
    m_error = ParserError(std::move(detail));
}

inline bool CXmlParser::OpenTag(bool closesAtOnce)
{
    m_nameDecoded = false;
    m_textView = nullptr;
    if (m_firstTag) {
        m_firstTag = false;
        if (m_tagName.View() == "?xml") {
            ReadDeclaration();
            return true;
        }
    }
    if (m_stackSize >= m_maxDepth)
        return Stop(ParserError("element nesting deeper than " + std::to_string(m_maxDepth) + " levels"));
    // The open elements' names are kept until their end tags: together at most two tokens' worth.
    if (m_stackNameBytes + m_tagName.Size() > 2 * m_maxToken)
        return Stop(ParserError("names of the open elements longer than " + std::to_string(2 * m_maxToken) + " bytes"));
    m_stackNameBytes += m_tagName.Size();
    CXmlHandler* handler = m_stackSize == 0 ? m_root : m_stack[m_stackSize - 1].handler;
    // Entries are kept when popped so their name buffers are reused.
    if (m_stackSize == m_stack.size())
        m_stack.emplace_back();
    if (!closesAtOnce)
        m_stack[m_stackSize].name.assign(m_tagName.View());
    m_stack[m_stackSize].handler = handler;
    ++m_stackSize;
    m_delegateAllowed = true;
    const bool ok = handler == nullptr || handler->OnOpenTag(*this);
    m_delegateAllowed = false;
    if (!ok && m_error.Empty())
        DescribeFailedOpenTag();
    return ok;
}

inline bool CXmlParser::CloseTag(bool ownStart)
{
    if (!ownStart)
        m_nameDecoded = false;
    m_textView = nullptr;
    CXmlHandler* handler = m_stackSize == 0 ? m_root : m_stack[m_stackSize - 1].handler;
    const bool ok = handler == nullptr || handler->OnCloseTag(*this);
    if (ownStart) {
        // The entry pushed for this empty tag holds no copy of its name.
        --m_stackSize;
        m_stackNameBytes -= m_tagName.Size();
    } else if (m_stackSize > 0 && SameBytes(m_stack[m_stackSize - 1].name, m_tagName.View())) {
        std::string& name = m_stack[--m_stackSize].name;
        m_stackNameBytes -= name.size();
        if (name.capacity() > kKeepBytes)
            std::string().swap(name);
    }
    if (!ok && m_error.Empty())
        DescribeFailedCloseTag();
    return ok;
}

bool CXmlParser::ReportStartTag()
{
    return OpenTag(false);
}

bool CXmlParser::ReportEndTag()
{
    return CloseTag(false);
}

// A start tag without attributes closed at once is reported as its end tag alone; one with
// attributes as its start tag, then its end tag. Points, most of a logbook's tags, come this
// way, so both reports are made here in one call.
bool CXmlParser::ReportEmptyTag()
{
    bool ok = true;
    bool pushed = false;
    if (m_attrCount > 0) {
        const std::size_t depth = m_stackSize;
        ok = OpenTag(true);
        pushed = m_stackSize > depth;
        m_attrCount = 0;
        m_attrBytes = 0;
    }
    if (ok)
        ok = CloseTag(pushed);
    m_tagName.Clear();
    return ok;
}
