#pragma once

class CXmlParser;

// The reading interface of every record: the parser reports start and end tags to it.
class CXmlHandler
{
public:
    virtual ~CXmlHandler() = default;
    // A start tag has been read; read its name and attributes from the parser. False stops the parse.
    virtual bool OnOpenTag(CXmlParser& parser) = 0;
    // An end tag has been read; read its name and text from the parser. False stops the parse.
    virtual bool OnCloseTag(CXmlParser& parser) = 0;
};
