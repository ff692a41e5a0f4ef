#pragma once

#include "Amounts.h"

#include <QByteArray>
#include <QXmlStreamWriter>

#include <string>

namespace studio {

/// Puts a MaterialX document together, element by element.
class MtlxWriter {
public:
    /// The bytes outlive this.
    explicit MtlxWriter(QByteArray& bytes);
    void Finish() { m_xml.writeEndDocument(); }

    /// The type may be empty.
    void Open(const char* category, const std::string& name, const char* type);
    void Attribute(const char* name, const std::string& value);
    void Close() { m_xml.writeEndElement(); }

    void Value(const char* input, const char* type, const std::string& value);
    void Number(const char* input, float value);
    void Colour(const char* input, Rgb value);
    /// An input that a node of the same graph feeds.
    void From(const char* input, const char* type, const std::string& node);
    void Output(const char* name, const char* type, const std::string& node);

private:
    void Put(const char* input, const char* type, const char* attribute, const std::string& value);

    QXmlStreamWriter m_xml;
};

}  // namespace studio
