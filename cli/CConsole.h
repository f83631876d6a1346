#pragma once

#include <string_view>

#include <QString>

// The tool's two output channels. Everything is written as UTF-8 bytes, unchanged, so that
// exported files and messages look the same on every terminal and in every pipe.
class CConsole
{
public:
    // Writes text to standard output.
    static void Out(std::string_view text);
    static void Out(const QString& text);
    // Writes text to standard error.
    static void Err(std::string_view text);
    static void Err(const QString& text);
    // Writes a line (text and "\n") to standard output / standard error.
    static void OutLine(std::string_view text);
    static void ErrLine(std::string_view text);
    static void ErrLine(const QString& text);
    // Flushes standard output; false when an earlier write to it failed.
    static bool FlushOut();
};
