#include "CExpatCounter.h"

#include <expat.h>

#include <cstdio>
#include <memory>
#include <string>

CExpatCounter::CExpatCounter() : m_parser(XML_ParserCreate(nullptr))
{
    auto* parser = static_cast<XML_Parser>(m_parser);
    XML_SetUserData(parser, this);
    XML_SetElementHandler(parser, Start, End);
    XML_SetCharacterDataHandler(parser, Text);
}

CExpatCounter::~CExpatCounter()
{
    XML_ParserFree(static_cast<XML_Parser>(m_parser));
}

bool CExpatCounter::Feed(const char* data, std::size_t size, bool last)
{
    return XML_Parse(static_cast<XML_Parser>(m_parser), data, static_cast<int>(size), last ? 1 : 0) == XML_STATUS_OK;
}

bool CExpatCounter::ParseFile(const std::string& path, std::size_t chunkBytes)
{
    std::FILE* file = std::fopen(path.c_str(), "rb");
    if (file == nullptr)
        return false;
    std::unique_ptr<char[]> buffer(new char[chunkBytes]);
    bool ok = true;
    for (;;) {
        const std::size_t n = std::fread(buffer.get(), 1, chunkBytes, file);
        if (n == 0) {
            ok = std::ferror(file) == 0 && Feed(buffer.get(), 0, true);
            break;
        }
        if (!Feed(buffer.get(), n, false)) {
            ok = false;
            break;
        }
    }
    std::fclose(file);
    return ok;
}

std::string CExpatCounter::ErrorText() const
{
    return XML_ErrorString(XML_GetErrorCode(static_cast<XML_Parser>(m_parser)));
}

void CExpatCounter::Start(void* data, const char* name, const char** attrs)
{
    auto* self = static_cast<CExpatCounter*>(data);
    ++self->m_work.starts;
    self->m_work.attributeBytes += std::char_traits<char>::length(name);
    for (const char** a = attrs; *a != nullptr; a += 2) {
        self->m_value.assign(a[1]);
        self->m_work.attributeBytes += self->m_value.size();
    }
    self->m_text.clear();
}

void CExpatCounter::End(void* data, const char* name)
{
    auto* self = static_cast<CExpatCounter*>(data);
    ++self->m_work.ends;
    self->m_work.attributeBytes += std::char_traits<char>::length(name);
    self->m_work.textBytes += self->m_text.size();
    self->m_text.clear();
}

void CExpatCounter::Text(void* data, const char* text, int length)
{
    static_cast<CExpatCounter*>(data)->m_text.append(text, static_cast<std::size_t>(length));
}
