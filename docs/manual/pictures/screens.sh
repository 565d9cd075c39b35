#!/usr/bin/env bash
# Pictures of the third chapter: the lists, the screens of the road of a part, a question, and the questions of a table.
# Usage: docs/manual/pictures/screens.sh folder
set -euo pipefail
cd "$(dirname "$0")/../../.."
. docs/window_pictures.sh
target=$1

look() {
    photograph "$target/screens-$1.png" "${2:-}"
}

build_station
start_display 1024x768
station=$window_pictures_work/station
make_station "$station" EXIT_CONFIRM=YES
batch=("$station/korvanta-batch" --quiet --set "Move Step=1" --set "LeadIn : A=3" --set "LeadIn : B=1.5" --key CopyLeads)
"${batch[@]}" BRACKET.dxf --set "X Sheet=1000" --set "Y Sheet=500" --save BRACKET
"${batch[@]}" FLANGE.dxf --set "X Sheet=*3" --set "Y Sheet=*2" --save FLANGE6
"${batch[@]}" R-05 --set "X Sheet=*5" --set "Y Sheet=*2" --save PLATE10
"${batch[@]}" C-01 --set "X Sheet=*4" --set "Y Sheet=*3" --set "Nesting=3" --save RINGS
start_station "$station"
caps F1
look circular
caps F1
look holes
caps F1
look dxf
caps F1
look iso
caps F1 F5
look programs
caps F10
look job
caps F1 F1 F3 F3 F3 F3 F3 F10 Down
look parameters
caps F1 F1 F1 F1 F10
look drawing
caps F10 Down Down Down Down 1 Enter 3 Enter 1.5 Enter Up Up Up Up F5
look cutting
caps F10 1000 Enter 600 Enter 1.2 Enter
look nesting
caps Esc
look question
caps F1
stop_station

make_station "$window_pictures_work/questions" PPR_INI=PPR_LinuxCNC.ini
start_station "$window_pictures_work/questions"
caps F10 F10 F10 F10 SAMPLE Enter
look dialog
