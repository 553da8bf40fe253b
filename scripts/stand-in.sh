# The stand-in for the firmware tool, and its firmware files, are in the runnable folder only while the simulator
# runs: beside a real mixer they would lie. Real files that lie there are set aside meanwhile. Sourced.

stand_in_files=(dfucons.exe firmware/flashupgrade.bin firmware/flashdata.bin firmware/flashdata.txt)

# put_stand_in_place BUILD
put_stand_in_place() {
    local from=$1/simulator/stand-in to=$1/dist/resources file
    take_stand_in_away "$1/dist"
    mkdir -p "$to/firmware"
    for file in "${stand_in_files[@]}"; do
        [[ ! -e $to/$file ]] || mv "$to/$file" "$to/$file.set-aside"
        cp "$from/$(basename "$file")" "$to/$file"
        : >"$to/$file.stand-in"
    done
}

# take_stand_in_away DIST: also after a run that was cut off.
take_stand_in_away() {
    local to=$1/resources file
    for file in "${stand_in_files[@]}"; do
        if [[ -e $to/$file.stand-in ]]; then
            rm -f "$to/$file" "$to/$file.stand-in"
        fi
        [[ ! -e $to/$file.set-aside ]] || mv "$to/$file.set-aside" "$to/$file"
    done
}
