#include "CommandContext.h"
#include "LibraryCommandTable.h"
#include "LibraryReading.h"
#include "TextureFile.h"
#include <CorvexMaterial/Schema.h>

#include <QImage>

namespace studio {
namespace {

std::vector<std::string> FilesOfMaterial(const CorvexDB::udtMaterial& material)
{
    std::vector<std::string> files;
    for (const CorvexMaterial::Attribute layer : CorvexMaterial::kTextureFiles) {
        files.push_back(std::get<std::string>(RowOf(layer).path.get(material)));
    }
    std::erase(files, "");
    return files;
}

std::vector<std::string> EntryProblems(LibraryFile& library, std::int32_t index)
{
    std::vector<std::string> problems;
    std::vector<std::string> files;
    if (library.Kind() == LibraryKind::Materials) {
        MaterialReading reading = ReadMaterial(library, index);
        problems = std::move(reading.problems);
        files = FilesOfMaterial(reading.material);
    } else {
        files.push_back(ReadTexture(library, index));
    }
    for (const std::string& file : files) {
        if (!StateOfFile(file)) {
            problems.push_back("texture " + file + " is missing");
        }
    }
    const std::string png = library.ThumbnailAt(index);
    if (!png.empty() && QImage::fromData(QByteArray::fromStdString(png)).isNull()) {
        problems.emplace_back("the thumbnail is damaged");
    }
    return problems;
}

}  // namespace

void ValidateCommand(CommandContext& context)
{
    LibraryFile library = OpenIn(context.job);
    for (const std::string& problem : library.StructureProblems()) {
        context.output.Problem(QStringLiteral("%1: %2").arg(QString::fromStdString(library.Path()),
                                                            QString::fromStdString(problem)));
    }
    std::size_t checked = 0;
    ForEachSelected(library, context, [&](std::int32_t index) {
        ++checked;
        TellProblems(library, index, EntryProblems(library, index), context);
    });
    const bool isGood = !context.output.HasProblems();
    context.output.Result({{"checked", static_cast<int>(checked)}, {"good", isGood}},
                          {CountText("Entries checked: %n.", checked)});
}

}  // namespace studio
