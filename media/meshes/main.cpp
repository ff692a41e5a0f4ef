// Writes the preview meshes into the folder that is its one argument.

#include "PreviewShapes.h"
#include "XFileWriter.h"

#include <filesystem>
#include <fstream>
#include <iostream>

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::cerr << "usage: preview_mesh_writer <folder>\n";
        return 2;
    }
    std::filesystem::create_directories(argv[1]);
    for (const media::PreviewShape& shape : media::kPreviewShapes) {
        const std::filesystem::path path = std::filesystem::path(argv[1]) / shape.fileName;
        std::ofstream file(path);
        media::WriteXFile(file, shape.make());
        if (!file.flush()) {
            std::cerr << "cannot write " << path << '\n';
            return 1;
        }
    }
    return 0;
}
