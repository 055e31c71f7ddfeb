# Sourced by the other scripts: installs the Debian packages that are missing.
# shellcheck shell=bash disable=SC2034

# need_packages PACKAGE...
need_packages() {
    local missing=() package
    for package in "$@"; do
        dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'ok installed' || missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return 0

    local as_root=()
    if [ "$(id -u)" -ne 0 ]; then
        if ! command -v sudo >/dev/null; then
            echo "These packages are missing: ${missing[*]}" >&2
            echo "Install them as root (apt-get install ${missing[*]}) and start again." >&2
            return 1
        fi
        as_root=(sudo)
    fi
    echo "Installing: ${missing[*]}" >&2
    "${as_root[@]}" apt-get update -qq
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}" >&2
}

build_packages=(g++ cmake ninja-build qt6-base-dev qt6-base-dev-tools qt6-translations-l10n libqcustomplot-dev
    fonts-noto-cjk)
wayland_packages=(qt6-wayland) # where there is no X server beside it
desktop_check_packages=(xvfb xdotool imagemagick fonts-noto-cjk)
windows_packages=(g++-mingw-w64-x86-64-posix googletest wine64 wine)
test_packages=("${build_packages[@]}" git clang-format-14 clang-tidy-14 libgtest-dev libgmock-dev libbenchmark-dev
    "${windows_packages[@]}" "${desktop_check_packages[@]}")
fuzz_packages=(clang-14 libclang-rt-14-dev)
