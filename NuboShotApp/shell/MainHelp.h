#pragma once

// The text of "nuboshot --help": printed by the small front program itself
// and by the whole program when run directly.
namespace nubo::cli {

inline constexpr char mainHelp[] = R"(Usage: nuboshot [COMMAND [ARGUMENTS]]

Nubo Shot captures, annotates and records the screen. Without a command it
starts in the tray of the current desktop session (once per session).

Commands:
  capture area|window|fullscreen|scrolling|text|last-area|recording
                          the running Nubo Shot captures (started if needed)
  annotate FILE...        open images (or shot archives) in the editor
  open [FILE...]          the same; with no file, start the tray
  displays [--json]       list the displays
  windows [--json]        list the windows that can be captured, front-most first
  grab fullscreen|window ID|region X,Y,W,H -o FILE
                          capture the screen into an image file
  archive new IMAGE DIR   store an image as an editable shot archive in DIR
  archive check DIR       read a shot archive and print what it holds
  export DIR -o FILE      render a shot archive to PNG, JPEG, HEIC or WebP
  export DIR --quick      ... into the quick-save folder under a dated name
  stitch FRAME... -o FILE stitch frames of a scrolling area into one tall PNG
  record display [ID]|area X,Y,W,H|window ID [-o DIR] [--duration S] ...
                          record the screen into an MP4 (SIGINT stops, SIGUSR1 pauses)
  review FILE             open a recording in the review window
  video export SOURCE -o FILE [--cut START-END]... [--crop X,Y,W,H] ...
                          export an edited copy of a recording
  video info FILE         what a recording holds
  upload FILE [--destination auto|r2|filebin]
                          upload a file to Filebin or an S3 bucket and print its link
  ocr FILE [--lang LANG] | --codes FILE
                          print the text (or the QR codes and barcodes) in an image

Options:
  -h, --help              show this help; "nuboshot COMMAND --help" for a command
  -v, --version           show the version

Exit codes: 0 success, 1 failure (one line on standard error), 2 bad usage.
)";

} // namespace nubo::cli
