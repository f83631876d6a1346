#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// A token of the parser's input (a tag name, an attribute name or value, an element text).
// While its chunk is being parsed a token is only a view into that chunk, so most tokens are
// never copied; a token joined from several chunks, or still needed when its chunk ends, lives
// in the token's own buffer, which is reused from token to token.
class CXmlToken
{
public:
    // An empty token.
    CXmlToken() = default;
    // Copies keep pointing at the chunk when the original does, else at their own buffer.
    CXmlToken(const CXmlToken& other) : m_own(other.m_own) { Adopt(other); }
    CXmlToken& operator=(const CXmlToken& other)
    {
        if (this != &other) {
            m_own = other.m_own;
            Adopt(other);
        }
        return *this;
    }

    // The token's bytes.
    std::string_view View() const { return {m_data, m_size}; }
    // Number of bytes.
    std::size_t Size() const { return m_size; }
    // True for a token of no bytes.
    bool Empty() const { return m_size == 0; }

    // Points at bytes of the current chunk.
    void SetView(const char* data, std::size_t size)
    {
        m_data = data;
        m_size = size;
    }
    // Takes the carried start of a token plus its end in the current chunk; carry is left empty.
    void SetJoined(std::string& carry, const char* data, std::size_t size)
    {
        m_own.swap(carry);
        m_own.append(data, size);
        carry.clear();
        m_data = m_own.data();
        m_size = m_own.size();
    }
    // Makes the token empty; the own buffer keeps its capacity.
    void Clear() { m_size = 0; }
    // Makes the token empty and frees the own buffer when it holds more than keep bytes.
    void Release(std::size_t keep)
    {
        if (m_own.capacity() > keep)
            std::string().swap(m_own);
        m_own.clear();
        m_data = m_own.data();
        m_size = 0;
    }
    // Copies a view into the own buffer, before the chunk it points into goes away.
    void Detach()
    {
        if (m_size == 0) {
            m_own.clear();
        } else if (m_data != m_own.data() || m_size != m_own.size()) {
            m_own.assign(m_data, m_size);
        }
        m_data = m_own.data();
    }
    // The token as a string held by the token itself, when it has one; otherwise null.
    const std::string* Owned() const { return m_data == m_own.data() && m_size == m_own.size() ? &m_own : nullptr; }

private:
    void Adopt(const CXmlToken& other)
    {
        if (other.m_data == other.m_own.data()) {
            m_data = m_own.data();
            m_size = other.m_size;
        } else {
            m_data = other.m_data;
            m_size = other.m_size;
        }
    }

    const char* m_data = "";
    std::size_t m_size = 0;
    std::string m_own;
};
