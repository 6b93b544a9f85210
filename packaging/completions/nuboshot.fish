# fish completion for nuboshot: commands, modes, options, file names, and
# the display and window ids and microphones the running desktop has (asked
# of nuboshot itself, the id first on each line it prints).

function __nuboshot_ids
    # The id, then what fish shows beside it.
    command nuboshot $argv 2>/dev/null
end

# Each command and what fish shows beside it.
set -l described \
    capture "Capture through the running Nubo Shot" \
    annotate "Open images in the editor" \
    open "Open images in the editor" \
    displays "List the displays" \
    windows "List the windows" \
    grab "Capture into an image file" \
    archive "Store or read a shot archive" \
    export "Render a shot archive" \
    stitch "Stitch scrolled frames" \
    record "Record the screen" \
    review "Open a recording for review" \
    video "Export or describe a recording" \
    upload "Upload a file" \
    ocr "Print the text or the codes in an image"
set -l commands $described[1..-1..2]
set -l first "not __fish_seen_subcommand_from $commands"
complete -c nuboshot -f
complete -c nuboshot -n "$first" -s h -l help -d "Show the help"
complete -c nuboshot -n "$first" -s v -l version -d "Show the version"
for i in (seq 1 2 (count $described))
    complete -c nuboshot -n "$first" -a $described[$i] -d $described[(math $i + 1)]
end

complete -c nuboshot -n "__fish_seen_subcommand_from capture" -a "area window fullscreen scrolling text last-area recording"
complete -c nuboshot -n "__fish_seen_subcommand_from capture" -l delay -x -a "3 5 10" -d "Seconds before the screen is frozen"
complete -c nuboshot -n "__fish_seen_subcommand_from capture" -l pin -d "Pin the shot to the screen"
complete -c nuboshot -n "__fish_seen_subcommand_from displays windows" -l json -d "As JSON"

complete -c nuboshot -n "__fish_seen_subcommand_from grab; and not __fish_seen_subcommand_from fullscreen window region" -a "fullscreen window region"
complete -c nuboshot -n "__fish_seen_subcommand_from grab; and __fish_seen_subcommand_from window" -a "pick (__nuboshot_ids windows)"
complete -c nuboshot -n "__fish_seen_subcommand_from grab" -l display -x -a "(__nuboshot_ids displays)" -d "The display's id"
complete -c nuboshot -n "__fish_seen_subcommand_from grab" -l quality -x -d "Lossy quality, 0 to 1"
complete -c nuboshot -n "__fish_seen_subcommand_from grab export stitch" -s o -l output -r -F -d "The file to write"

complete -c nuboshot -n "__fish_seen_subcommand_from archive; and not __fish_seen_subcommand_from new check" -a "new check"
complete -c nuboshot -n "__fish_seen_subcommand_from archive" -F

complete -c nuboshot -n "__fish_seen_subcommand_from export" -F
complete -c nuboshot -n "__fish_seen_subcommand_from export" -l quick -d "Into the quick-save folder"
complete -c nuboshot -n "__fish_seen_subcommand_from export" -l format -x -a "png jpeg heic webp"
complete -c nuboshot -n "__fish_seen_subcommand_from export" -l quality -x -d "Lossy quality, 0 to 1"
complete -c nuboshot -n "__fish_seen_subcommand_from export" -l scale -x -a "1 2"

complete -c nuboshot -n "__fish_seen_subcommand_from stitch annotate open review upload ocr" -F
complete -c nuboshot -n "__fish_seen_subcommand_from ocr" -l lang -x -d "Languages of the text"
complete -c nuboshot -n "__fish_seen_subcommand_from ocr" -l codes -d "QR codes and barcodes instead"
complete -c nuboshot -n "__fish_seen_subcommand_from ocr" -l list-languages -d "The installed languages"
complete -c nuboshot -n "__fish_seen_subcommand_from stitch" -l verbose -d "One line per frame"
complete -c nuboshot -n "__fish_seen_subcommand_from upload" -l destination -x -a "auto r2 filebin"

complete -c nuboshot -n "__fish_seen_subcommand_from record; and not __fish_seen_subcommand_from display area window" -a "display area window"
complete -c nuboshot -n "__fish_seen_subcommand_from record; and __fish_seen_subcommand_from display" -a "(__nuboshot_ids displays)"
complete -c nuboshot -n "__fish_seen_subcommand_from record; and __fish_seen_subcommand_from window" -a "pick (__nuboshot_ids windows)"
complete -c nuboshot -n "__fish_seen_subcommand_from record" -l list-sources -d "List the microphones"
complete -c nuboshot -n "__fish_seen_subcommand_from record" -s o -l output -x -a "(__fish_complete_directories)" -d "The folder to write into"
complete -c nuboshot -n "__fish_seen_subcommand_from record" -l fps -x -a "30 60"
complete -c nuboshot -n "__fish_seen_subcommand_from record" -l resolution -x -a "native standard"
complete -c nuboshot -n "__fish_seen_subcommand_from record" -l codec -x -a "h264 hevc"
complete -c nuboshot -n "__fish_seen_subcommand_from record" -l duration -x -d "Seconds"
complete -c nuboshot -n "__fish_seen_subcommand_from record" -l no-cursor
complete -c nuboshot -n "__fish_seen_subcommand_from record" -l highlight-clicks
complete -c nuboshot -n "__fish_seen_subcommand_from record" -l system-audio
complete -c nuboshot -n "__fish_seen_subcommand_from record" -l microphone -f -a "(__nuboshot_ids record --list-sources)" -d "The default microphone, or this one"
complete -c nuboshot -n "__fish_seen_subcommand_from record" -l camera

complete -c nuboshot -n "__fish_seen_subcommand_from video; and not __fish_seen_subcommand_from export info" -a "export info"
complete -c nuboshot -n "__fish_seen_subcommand_from video" -F
complete -c nuboshot -n "__fish_seen_subcommand_from video; and __fish_seen_subcommand_from export" -s o -l output -r -F -d "The MP4 to write"
complete -c nuboshot -n "__fish_seen_subcommand_from video; and __fish_seen_subcommand_from export" -l cut -x -d "START-END"
complete -c nuboshot -n "__fish_seen_subcommand_from video; and __fish_seen_subcommand_from export" -l in -x -d "Seconds"
complete -c nuboshot -n "__fish_seen_subcommand_from video; and __fish_seen_subcommand_from export" -l out -x -d "Seconds"
complete -c nuboshot -n "__fish_seen_subcommand_from video; and __fish_seen_subcommand_from export" -l crop -x -d "X,Y,W,H"
complete -c nuboshot -n "__fish_seen_subcommand_from video; and __fish_seen_subcommand_from export" -l blur -x -d "X,Y,W,H@START-END"
complete -c nuboshot -n "__fish_seen_subcommand_from video; and __fish_seen_subcommand_from export" -l mute
complete -c nuboshot -n "__fish_seen_subcommand_from video; and __fish_seen_subcommand_from export" -l quality -x -a "original 1080 720"
complete -c nuboshot -n "__fish_seen_subcommand_from video; and __fish_seen_subcommand_from export" -l fps -x -a "10 15 24 30" -d "Pictures a second of a GIF or WebP"
complete -c nuboshot -n "__fish_seen_subcommand_from video; and __fish_seen_subcommand_from export" -l width -x -a "original 1280 960 640" -d "Width of a GIF or WebP"
