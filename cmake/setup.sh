# shellcheck shell=bash
# Sourced by the scripts from the top folder: the packages they need, and how they configure.

run_packages="g++ cmake ninja-build pkg-config qt6-base-dev libqt6opengl6-dev qt6-svg-dev
    libqt6svg6 qt6-wayland libgl-dev libglu1-mesa-dev libopengl-dev libgl1-mesa-dri libxkbcommon-dev libxcb1-dev fonts-dejavu-core"
# shellcheck disable=SC2034 # for the scripts that source this
test_packages="$run_packages libgtest-dev libbenchmark-dev locales xvfb xauth openbox
    at-spi2-core dbus-daemon"
# shellcheck disable=SC2034
package_packages="dpkg-dev file fakeroot lintian desktop-file-utils appstream libxml2-utils shared-mime-info xdg-utils
    libfile-mimeinfo-perl man-db zsh fish python3 xdotool x11-utils xvfb xauth openbox"

# shellcheck disable=SC2034
coverage_packages="$test_packages gcovr python3"

# Installs the Debian packages that are missing, and only those.
ensure_packages() {
    local missing=()
    local package
    for package in "$@"; do
        if [ "$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null)" != installed ]; then
            missing+=("$package")
        fi
    done
    [ ${#missing[@]} -eq 0 ] && return 0
    echo "Installing: ${missing[*]}"
    local as_root=()
    [ "$(id -u)" -eq 0 ] || as_root=(sudo)
    "${as_root[@]}" apt-get update -qq
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
}

# Configures build/PRESET unless the presets and packages are unchanged since the last time. (The build itself
# configures again when a CMakeLists.txt changes, but keeps the cached values.)
configure() {
    local preset=$1
    local stamp=build/$preset/configured
    if [ -f "build/$preset/build.ninja" ] && [ "$stamp" -nt CMakePresets.json ] &&
        [ "$stamp" -nt cmake/setup.sh ]; then
        return 0
    fi
    rm -f "$stamp"
    cmake --fresh --preset "$preset" >/dev/null
    touch "$stamp"
}

# Runs a command on a display of its own, of $screen_size if that is set, with a window manager, without which no
# window is ever activated or maximised.
on_display() {
    # in a Wayland session, the toolkit would use that one
    # shellcheck disable=SC2016 # expanded by the shell on the display
    QT_QPA_PLATFORM=xcb xvfb-run -a -s "-screen 0 ${screen_size:-1280x1024}x24" bash -c '
        openbox >/dev/null 2>&1 &
        manager=$!
        status=0
        "$@" || status=$?
        kill "$manager" 2>/dev/null || true
        exit "$status"' on_display "$@"
}
