# Installs Debian packages; read by ./start and ./test, which stand at the top of the tree.

# The packages that ./start or ./test ($1) needs and that are missing, one a line.
missing_packages() {
    local package user
    while read -r package user; do
        [[ -z $package || $package == '#'* ]] && continue
        [[ $user == start || $1 == test ]] || continue
        dpkg-query -W -f '${db:Status-Status}\n' "$package" 2>/dev/null | grep -qx installed || echo "$package"
    done < install/packages.txt
}

install_packages() {
    if ! command -v dpkg-query > /dev/null; then
        echo "Kein Debian: Die Pakete aus install/packages.txt müssen von Hand eingerichtet sein." >&2
        return
    fi
    local missing as_root=()
    mapfile -t missing < <(missing_packages "$1")
    ((${#missing[@]})) || return 0
    if ((EUID != 0)); then
        if ! command -v sudo > /dev/null; then
            echo "Es fehlen Pakete. Bitte als root einrichten:" >&2
            echo "    apt-get install --no-install-recommends ${missing[*]}" >&2
            exit 1
        fi
        as_root=(sudo)
    fi
    echo "Richte fehlende Pakete ein: ${missing[*]}"
    "${as_root[@]}" apt-get update -qq
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -qq -y --no-install-recommends "${missing[@]}" > /dev/null
}
