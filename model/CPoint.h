#pragma once

// One point of a signature stroke, in pixels of the signature area (origin top left).
struct CPoint
{
    int x = 0;
    int y = 0;

    friend bool operator==(const CPoint&, const CPoint&) = default;
};
