// Writes the preview meshes into the folder that is its one argument.

#include "PreviewMeshes.h"
#include "XFileWriter.h"

#include "FileWriting.h"

#include <filesystem>
#include <iostream>
#include <sstream>

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::cerr << "usage: preview_mesh_writer <folder>\n";
        return 2;
    }
    try {
        CorvexMaterial::MakeFolder(argv[1]);
        for (const media::PreviewShape& shape : media::kPreviewShapes) {
            std::ostringstream text;
            media::WriteXFile(text, shape.make());
            CorvexMaterial::WriteFile(std::filesystem::path(argv[1]) / shape.fileName, text.str());
        }
        return 0;
    } catch (const std::exception& error) {
        std::cerr << "preview_mesh_writer: " << error.what() << '\n';
        return 1;
    }
}
