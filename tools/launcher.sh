# Entering the journal in the desktop menu of the person who runs this, and taking it out again. To be sourced by bash
# after common.sh. The places are those that freedesktop.org gives a person's own programs.
# shellcheck shell=bash

launcher=$data_home/applications/quillon-journal.desktop
launcher_icons=$data_home/icons/hicolor

# desktop_string <text>
# As the value of a key: a backslash is written twice.
desktop_string() { printf '%s' "${1//\\/\\\\}"; }

# desktop_word <text>
# As one word of the key Exec: in quotes, with what means something in them escaped, and so that no % is a field.
desktop_word() {
    local word=$1 special
    for special in '\' '"' '`' '$'; do word=${word//"$special"/\\"$special"}; done
    desktop_string "\"${word//%/%%}\""
}

# install_launcher
# Writes the menu's entry, which starts $journal/run, and its icons; those that are there already are replaced. The
# entry names this folder: from one that was moved it is to be installed again. Until then the menu does not show it,
# because of TryExec.
install_launcher() {
    [[ $journal != *$'\n'* ]] || die "the name of this folder has a line end in it, which no menu could start"
    local icon size
    for icon in "$journal"/res/journal_*.png; do
        size=${icon##*_}
        size=${size%.png}
        mkdir -p "$launcher_icons/${size}x$size/apps"
        cp "$icon" "$launcher_icons/${size}x$size/apps/quillon-journal.png" || die "cannot write the icons"
    done
    mkdir -p "${launcher%/*}"
    cat >"$launcher.new" <<END || die "cannot write $launcher"
[Desktop Entry]
Type=Application
Version=1.0
Name=Quillon Journal
GenericName=Journal
Comment=What happened, when, for how long, and with whom
Exec=$(desktop_word "$journal/run") --from-menu
TryExec=$(desktop_string "$journal/run")
Icon=quillon-journal
Terminal=false
Categories=Office;Calendar;
Keywords=diary;notes;log;
StartupWMClass=journal.exe
END
    mv "$launcher.new" "$launcher" || die "cannot write $launcher"
    # An icon cache older than the folder does not count.
    touch "$launcher_icons"
}

# uninstall_launcher
# Removes what install_launcher has written, if it is there, and nothing else.
uninstall_launcher() {
    rm -f "$launcher" "$launcher_icons"/*/apps/quillon-journal.png
    [[ ! -d $launcher_icons ]] || touch "$launcher_icons"
}
