#include "MtlxWriter.h"

#include "PlainNumbers.h"

namespace studio {
namespace {

QString XmlText(const std::string& text)
{
    return QString::fromStdString(text);
}

}  // namespace

MtlxWriter::MtlxWriter(QByteArray& bytes) : m_xml(&bytes)
{
    m_xml.setAutoFormatting(true);
    m_xml.setAutoFormattingIndent(2);
    m_xml.writeStartDocument();
    m_xml.writeStartElement("materialx");
    m_xml.writeAttribute("version", "1.38");
    m_xml.writeAttribute("colorspace", "lin_rec709");
}

void MtlxWriter::Open(const char* category, const std::string& name, const char* type)
{
    m_xml.writeStartElement(QLatin1String(category));
    m_xml.writeAttribute("name", XmlText(name));
    if (*type != '\0') {
        m_xml.writeAttribute("type", QLatin1String(type));
    }
}

void MtlxWriter::Attribute(const char* name, const std::string& value)
{
    m_xml.writeAttribute(QLatin1String(name), XmlText(value));
}

void MtlxWriter::Value(const char* input, const char* type, const std::string& value)
{
    Put(input, type, "value", value);
}

void MtlxWriter::Number(const char* input, float value)
{
    Value(input, "float", PlainNumber(value));
}

void MtlxWriter::Colour(const char* input, Rgb value)
{
    Value(input, "color3", PlainNumbers(value, ", "));
}

void MtlxWriter::From(const char* input, const char* type, const std::string& node)
{
    Put(input, type, "nodename", node);
}

void MtlxWriter::Output(const char* name, const char* type, const std::string& node)
{
    Open("output", name, type);
    Attribute("nodename", node);
    Close();
}

void MtlxWriter::Put(const char* input, const char* type, const char* attribute,
                     const std::string& value)
{
    Open("input", input, type);
    Attribute(attribute, value);
    Close();
}

}  // namespace studio
