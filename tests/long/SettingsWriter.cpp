#include <CorvexMaterial/QtPlatform.h>

#include <cstdio>
#include <cstdlib>

// Writes number after number into two keys, from the one that is given, and says each that is on
// the disk. Until it is killed.
int main(int argc, char** argv)
{
    CorvexMaterial::QtPlatform platform;
    CorvexMaterial::SettingsStore& settings = platform.Get().settings;
    for (int number = argc > 1 ? std::atoi(argv[1]) : 0;; ++number) {
        for (const char* key : {"First", "Second"}) {
            settings.Write({"Written", "Numbers", key}, std::to_string(number));
        }
        settings.Flush("Written");
        std::printf("%d\n", number);
        std::fflush(stdout);
    }
}
