// Prints the texts that stand in tables without Qt as a source that Qt's lupdate reads.

#include <CorvexMaterial/Schema.h>

#include <iostream>

int main()
{
    std::cout << "#include <QtGlobal>\n";
    const auto print = [](const char* text) {
        std::cout << "QT_TRANSLATE_NOOP(\"Attribute\", \"" << text << "\")\n";
    };
    for (const CorvexMaterial::AttributeRow& row : CorvexMaterial::AttributeRows()) {
        print(row.label);
        print(TitleOf(row.group));
    }
    return std::cout.flush() ? 0 : 1;
}
