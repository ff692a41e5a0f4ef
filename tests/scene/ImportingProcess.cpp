#include "ImportProcess.h"

// The importing process alone, as the studio's own main starts it.
int main(int argc, char** argv)
{
    return studio::RunImportIfAsked(argc, argv).value_or(1);
}
