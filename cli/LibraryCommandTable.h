#pragma once

#include <array>

namespace studio {

struct CommandContext;

/// The commands; each may throw, and says through the context what else went wrong.
void CreateCommand(CommandContext& context);
void ListCommand(CommandContext& context);
void ValidateCommand(CommandContext& context);
void AddCommand(CommandContext& context);
void SetCommand(CommandContext& context);
void ImportCommand(CommandContext& context);
void ExportCommand(CommandContext& context);
void ThumbnailsCommand(CommandContext& context);
void RemoveCommand(CommandContext& context);
void RestoreCommand(CommandContext& context);
void TrashCommand(CommandContext& context);
void EmptyTrashCommand(CommandContext& context);

struct LibraryCommandRow {
    const char* name;
    int leastOperands;  ///< after the library
    int mostOperands;
    bool needsOut;
    void (*run)(CommandContext&);
};

inline constexpr int kManyOperands = 1000000;

inline constexpr std::array kLibraryCommands{
    LibraryCommandRow{"create", 0, 0, false, CreateCommand},
    LibraryCommandRow{"list", 0, 0, false, ListCommand},
    LibraryCommandRow{"validate", 0, 0, false, ValidateCommand},
    LibraryCommandRow{"add", 0, kManyOperands, false, AddCommand},
    LibraryCommandRow{"set", 0, kManyOperands, false, SetCommand},
    LibraryCommandRow{"import", 1, kManyOperands, false, ImportCommand},
    LibraryCommandRow{"export", 0, 0, true, ExportCommand},
    LibraryCommandRow{"thumbnails", 0, 0, false, ThumbnailsCommand},
    LibraryCommandRow{"remove", 1, kManyOperands, false, RemoveCommand},
    LibraryCommandRow{"restore", 1, kManyOperands, false, RestoreCommand},
    LibraryCommandRow{"trash", 0, 0, false, TrashCommand},
    LibraryCommandRow{"empty-trash", 0, 0, false, EmptyTrashCommand},
};

}  // namespace studio
