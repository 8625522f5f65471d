# What the game's screens look like and where their buttons are, for what plays it. Sourced after
# the harness; the window is 1024 by 832.

background="0 0 123" # 0.2 of linear blue
panel="0 0 59"       # of a menu, over the background
band="0 0 65"        # above and below the board
box="0 0 43"         # of the turn cover and the winner's banner

# Pictures are shaded: these are the colours in their middles, checked within `shading`.
plain="81 81 108"
accepting="168 217 255"
stone="73 100 151"
declare -A seat_shade=([red]="146 0 0" [blue]="0 0 146")
shading=24
declare -A ink=([red]="255 0 0" [blue]="0 0 255")

declare -A buttons=(
    [family_before]="352 112" [family_after]="672 112"
    [play_game]="512 752" [editor]="816 752"
    [seats_fewer]="352 96" [seats_ok]="512 768" [second_seat_stronger]="768 288"
    [map_after]="672 112" [map_play]="512 752" [map_edit]="512 752"
    [deck]="384 80" [end_turn]="944 80"
)

push() {
    click ${buttons[$1]}
}

# Waits until everything sent so far was taken: the help comes and goes, seen at a place where it
# darkens the board or the panel of a menu.
settle() {
    keys F1
    pixel_wait 890 300 "0 0 16" 16
    keys F1
    pixel_wait_not 890 300 "0 0 16" 16
}

# Moves the mouse off everything that it would light up.
mouse_aside() {
    mouse_move 512 150
}

title_is_shown() {
    pixel_is 120 8 "$background" && pixel_is 120 20 "$panel" && ! pixel_is 765 752 "$panel"
}

seats_are_shown() {
    pixel_is 120 8 "$panel"
}

map_list_is_shown() {
    pixel_is 120 8 "$background" && pixel_is 120 20 "$panel" && pixel_is 765 752 "$panel"
}

board_is_shown() {
    pixel_is 1000 8 "$band" && pixel_is 120 300 "$background"
}

# Whether the banner of a winner covers the board, in the colour of the seat.
winner_is_shown() {
    pixel_is 120 300 "$box" && region_has 112 600 800 32 "${ink[$1]}" "$shading" &&
        region_has 312 384 400 64 "${ink[$1]}" "$shading"
}

# Waits until the status lines show whose turn it is, by colour.
turn_wait() {
    pixel_wait 112 96 "${seat_shade[$1]}" 60
}

# Switches a seat between human and computer: 0 is the first seat.
seat_switch() {
    click 256 $((192 + 96 * $1))
}

# Prints where the board shows the states of a map file, and the colours seen there at its start.
states_seen() {
    awk -v accepting="$accepting" -v plain="$plain" -v stone="$stone" '
        BEGIN { count = 0 }
        $1 == "map" { x = 512 + $2; y = 416 - $3; scale = $4 }
        $1 == "stone" { colours[$2] = stone }
        $1 ~ /^[*.$]$/ {
            places[count] = int(x + $2 * scale) " " int(y - $3 * scale)
            if (!(count in colours)) colours[count] = $1 == "*" ? accepting : plain
            ++count
        }
        END { for (i = 0; i < count; ++i) print places[i], colours[i] }' "$1"
}

# Waits until the board shows all states of a map file.
board_wait() {
    wait_until board_is_shown
    local x y colour
    while read -r x y colour; do
        pixel_wait "$x" "$y" "$colour" "$shading"
    done < <(states_seen "$1")
}
