#pragma once

// The text encodings the reader decodes and the writer produces.
enum XmlEncoding
{
    Utf8 = 0,
    Latin1 = 1
};
