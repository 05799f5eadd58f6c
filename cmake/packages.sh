# Sourced by the scripts: installs the Debian packages that are missing, and only those.

run_packages="g++ cmake ninja-build pkg-config qt6-base-dev libqt6opengl6-dev qt6-svg-dev
    libqt6svg6 libgl-dev libglu1-mesa-dev libopengl-dev libgl1-mesa-dri libxkbcommon-dev fonts-dejavu-core"
test_packages="$run_packages libgtest-dev locales xvfb xauth openbox"

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
