#include "studio/import/GltfProcess.h"

// The importing process alone, as the studio's own main starts it.
int main(int argc, char** argv)
{
    return studio::RunMaterialImportIfAsked(argc, argv).value_or(1);
}
