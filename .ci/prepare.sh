# Sourced by run, test and bench: installs what is missing, configures and builds a preset.

studio_packages=(
    g++ cmake ninja-build pkg-config
    qt6-base-dev libqt6opengl6-dev qt6-image-formats-plugins
    libepoxy-dev libegl-dev libgl1-mesa-dri fonts-dejavu-core
    libassimp-dev libsqlite3-dev nlohmann-json3-dev povray povray-includes lld
    qt6-l10n-tools qt6-translations-l10n
)
test_packages=(xvfb xauth dbus at-spi2-core libatspi2.0-dev libgtest-dev libgmock-dev clang libclang-rt-dev parallel)
long_packages=(blender python3-numpy)
benchmark_packages=(libgtest-dev libgmock-dev libbenchmark-dev)

as_root() {
    if [[ $(id -u) -eq 0 ]]; then "$@"; else sudo "$@"; fi
}

# install_missing PACKAGE...
install_missing() {
    local packages=("$@")
    if ! command -v dpkg-query >/dev/null; then
        echo "Not a Debian system: please have these installed: ${packages[*]}" >&2
        return
    fi
    local installed missing
    installed=$(dpkg-query -W -f='${db:Status-Status} ${Package}\n' "${packages[@]}" 2>/dev/null || true)
    missing=()
    for package in "${packages[@]}"; do
        grep -qxF "installed $package" <<<"$installed" || missing+=("$package")
    done
    if ((${#missing[@]} > 0)); then
        echo "Installing: ${missing[*]}"
        as_root apt-get update -qq
        as_root env DEBIAN_FRONTEND=noninteractive \
            apt-get install -y -qq --no-install-recommends "${missing[@]}"
    fi
}

# build PRESET [TARGET...]
build() {
    local preset=$1
    local folder=build/$preset
    shift
    # Ninja configures again by itself when a CMake file changed, but not when the presets did.
    if [[ ! -f $folder/build.ninja || CMakePresets.json -nt $folder/CMakeCache.txt ]]; then
        cmake --preset "$preset"
        touch "$folder/CMakeCache.txt" "$folder/build.ninja"
    fi
    ninja -C "$folder" -j "$(nproc)" "${@:-all}"
}
