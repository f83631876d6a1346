#include "cli/CConsole.h"

#include <cstdio>

namespace {

void Write(std::FILE* stream, std::string_view text)
{
    if (!text.empty())
        std::fwrite(text.data(), 1, text.size(), stream);
}

} // namespace

void CConsole::Out(std::string_view text)
{
    Write(stdout, text);
}

void CConsole::Out(const QString& text)
{
    const QByteArray bytes = text.toUtf8();
    Write(stdout, std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size())));
}

void CConsole::Err(std::string_view text)
{
    Write(stderr, text);
}

void CConsole::Err(const QString& text)
{
    const QByteArray bytes = text.toUtf8();
    Write(stderr, std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size())));
}

void CConsole::OutLine(std::string_view text)
{
    Write(stdout, text);
    Write(stdout, "\n");
}

void CConsole::ErrLine(std::string_view text)
{
    Write(stderr, text);
    Write(stderr, "\n");
}

void CConsole::ErrLine(const QString& text)
{
    Err(text);
    Write(stderr, "\n");
}

bool CConsole::FlushOut()
{
    return std::fflush(stdout) == 0 && !std::ferror(stdout);
}
