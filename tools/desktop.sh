# What a person's desktop looks like, and telling it to a Wine prefix: its scale, and the fonts it has for other scripts.
# To be sourced by bash after common.sh.
# shellcheck shell=bash

# --- scale -------------------------------------------------------------------------------------------------------

# A number that may have decimals, and that is all there is: 2, 1.25, 96.5.
is_number() { [[ $1 =~ ^[0-9]{1,4}(\.[0-9]+)?$ ]]; }

# x_resource <name>
# The value of a resource of the X server, as xrdb keeps them; nothing without one.
x_resource() {
    local resources
    if command -v xrdb >/dev/null; then
        resources=$(xrdb -query 2>/dev/null)
    elif command -v xprop >/dev/null; then
        resources=$(xprop -root -notype RESOURCE_MANAGER 2>/dev/null)
        resources=${resources#*\"}
        resources=$(printf '%b' "${resources%\"}")
    fi
    awk -F '[: \t]+' -v name="$1" '$1 == name { print $2; exit }' <<<"${resources-}"
}

# The dots per inch that an XSETTINGS manager gives to the programs of the desktop.
xsettings_dpi() {
    command -v dump_xsettings >/dev/null || return 0
    dump_xsettings 2>/dev/null | awk '$1 == "Xft/DPI" && $2 > 0 { printf "%.0f", $2 / 1024; exit }'
}

# How many times as large as usual the toolkits of the desktop were told to draw.
toolkit_factor() {
    local factor=1 more
    is_number "${GDK_SCALE-}" && factor=$GDK_SCALE
    is_number "${QT_SCALE_FACTOR-}" && factor=$(awk -v a="$factor" -v b="$QT_SCALE_FACTOR" 'BEGIN { print (a > b ? a : b) }')
    is_number "${GDK_DPI_SCALE-}" && factor=$(awk -v a="$factor" -v b="$GDK_DPI_SCALE" 'BEGIN { print a * b }')
    if [[ $factor == 1 && ${XDG_CURRENT_DESKTOP-} == *KDE* ]]; then
        more=$(awk -F = '$1 == "ScaleFactor" { print $2; exit }' "${XDG_CONFIG_HOME:-$HOME/.config}/kdeglobals" 2>/dev/null)
        is_number "$more" && factor=$more
    elif [[ $factor == 1 ]] && command -v gsettings >/dev/null; then
        # "uint32 0" leaves the choice to the desktop, which then says it in Xft.dpi.
        more=$(gsettings get org.gnome.desktop.interface scaling-factor 2>/dev/null)
        is_number "${more#uint32 }" && ((${more#uint32 } > 1)) && factor=${more#uint32 }
        more=$(gsettings get org.gnome.desktop.interface text-scaling-factor 2>/dev/null)
        is_number "$more" && factor=$(awk -v a="$factor" -v b="$more" 'BEGIN { print a * b }')
    fi
    echo "$factor"
}

# desktop_dpi
# Prints the dots per inch of this desktop, 48 to 384: by CE_SCALE in percent, else by what the X server and the desktop
# say, of which the larger counts, since many desktops say it in one place alone.
desktop_dpi() {
    local dpi
    if [[ ${CE_SCALE-} =~ ^[0-9]{2,3}$ ]] && ((10#$CE_SCALE >= 50 && 10#$CE_SCALE <= 400)); then
        echo $(((96 * 10#$CE_SCALE + 50) / 100))
        return
    fi
    dpi=$(x_resource Xft.dpi)
    is_number "$dpi" || dpi=$(xsettings_dpi)
    is_number "$dpi" || dpi=96
    awk -v dpi="$dpi" -v factor="$(toolkit_factor)" 'BEGIN {
        wished = 96 * factor
        if (dpi < wished) dpi = wished
        if (dpi < 48) dpi = 48
        if (dpi > 384) dpi = 384
        printf "%.0f\n", dpi
    }'
}

# --- fonts -------------------------------------------------------------------------------------------------------

# Those whose letters Tahoma does not have, or not all of them, and last the signs.
scripts=(:lang=el :lang=ru :lang=he :lang=ar :lang=zh-cn :lang=zh-tw :lang=ja :lang=ko :lang=th :lang=hi :charset=2602)

# script_fonts
# Prints a line "file,family" for the desktop's best font of each script it has one for, each font once.
script_fonts() {
    command -v fc-match >/dev/null || return 0
    local script
    for script in "${scripts[@]}"; do
        # What fits best comes first, whether it has the script or not.
        fc-match --sort --format '%{file|basename},%{family[0]}\n' "sans-serif$script:outline=true" 2>/dev/null |
            grep -Fxf <(fc-list --format '%{file|basename},%{family[0]}\n' "$script:outline=true") | head -n 1
    done | awk '!seen[$0]++'
}

# --- the prefix --------------------------------------------------------------------------------------------------

# registry_strings <text>...
# As the value of a key of several strings, in a file for regedit.
registry_strings() {
    local bytes
    bytes=$( (printf '%s\0' "$@"; printf '\0') | iconv -f UTF-8 -t UTF-16LE | od -An -v -tx1 | tr -s ' \n' ',')
    bytes=${bytes#,}
    printf 'hex(7):%s' "${bytes%,}"
}

# A LOGFONTW: Tahoma, normal, of 11 points, which Wine scales. Its own font makes rows of menus too low to be hit with ease.
menu_font=0b,00,00,00,00,00,00,00,00,00,00,00,00,00,00,00,90,01,00,00,00,00,00,01,00,00,00,00
menu_font+=,54,00,61,00,68,00,6f,00,6d,00,61,00$(printf ',00%.0s' {1..52})

# desktop_registry
# Prints the keys of Windows for what this desktop is like.
desktop_registry() {
    printf 'Windows Registry Editor Version 5.00\n\n[HKEY_CURRENT_USER\\Control Panel\\Desktop]\n"LogPixels"=dword:%08x\n\n' "$(desktop_dpi)"
    printf '[HKEY_CURRENT_USER\\Control Panel\\Desktop\\WindowMetrics]\n"MenuFont"=hex:%s\n\n' "$menu_font"
    local fonts links face
    mapfile -t fonts < <(script_fonts)
    ((${#fonts[@]})) || return 0
    links=$(registry_strings "${fonts[@]}")
    printf '[HKEY_LOCAL_MACHINE\\Software\\Microsoft\\Windows NT\\CurrentVersion\\FontLink\\SystemLink]\n'
    for face in Tahoma 'MS Shell Dlg' 'MS Shell Dlg 2' 'Microsoft Sans Serif' 'Segoe UI' Arial; do
        printf '"%s"=%s\n' "$face" "$links"
    done
}

# suit_prefix <folder>
# Tells a prefix what the desktop is like, when that is not what it was told last.
suit_prefix() {
    local told=$1/desktop.reg
    desktop_registry >"$told.new"
    if ! cmp -s "$told.new" "$told"; then
        # Only in a file of 16-bit characters the strings of a key are such.
        iconv -f UTF-8 -t UTF-16 "$told.new" >"$told.wide" &&
            WINEPREFIX=$1 wine regedit /S "Z:${told//\//\\}.wide" && mv "$told.new" "$told"
    fi
    rm -f "$told.new" "$told.wide"
}
