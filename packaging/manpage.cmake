# Writes nuboshot(1) from the programs' own help texts ("nuboshot --help"
# and "nuboshot COMMAND --help" for every command), so the page says
# exactly what --help says.
#
#   cmake -DPROGRAM=…/nuboshot -DVERSION=0.1.0 -DOUTPUT=nuboshot.1 -P manpage.cmake
set(commands capture annotate open displays windows grab archive export stitch record review
    video upload ocr)

# The help text of `nuboshot ARGS… --help`, asked without a desktop: no bus,
# no display, the whole program drawing offscreen.
function(help_of variable)
    execute_process(
        COMMAND ${CMAKE_COMMAND} -E env --unset=DBUS_SESSION_BUS_ADDRESS --unset=DISPLAY
                --unset=WAYLAND_DISPLAY QT_QPA_PLATFORM=offscreen ${PROGRAM} ${ARGN} --help
        OUTPUT_VARIABLE text
        RESULT_VARIABLE status
        ERROR_VARIABLE errors
        TIMEOUT 60)
    if(NOT status EQUAL 0 OR text STREQUAL "")
        message(FATAL_ERROR "nuboshot ${ARGN} --help failed (${status}): ${errors}")
    endif()
    set(${variable} "${text}" PARENT_SCOPE)
endfunction()

# Text as roff shows it unchanged: backslashes and minus signs escaped, a
# line that begins with a dot or quote kept from being read as a request.
function(as_roff variable text)
    string(REPLACE "\\" "\\e" text "${text}")
    string(REPLACE "-" "\\-" text "${text}")
    string(REGEX REPLACE "(^|\n)([.'])" "\\1\\\\&\\2" text "${text}")
    set(${variable} "${text}" PARENT_SCOPE)
endfunction()

help_of(main)
# The first line is the synopsis, given by the page's own section.
string(REGEX REPLACE "^Usage:[^\n]*\n\n?" "" main "${main}")
as_roff(main "${main}")
set(page ".TH NUBOSHOT 1 \"\" \"Nubo Shot ${VERSION}\" \"User Commands\"
.SH NAME
nuboshot \\- capture, annotate and record the screen
.SH SYNOPSIS
.B nuboshot
[\\fICOMMAND\\fR [\\fIARGUMENTS\\fR]]
.SH DESCRIPTION
.nf
${main}.fi
.SH COMMANDS
")
foreach(command IN LISTS commands)
    help_of(text ${command})
    as_roff(text "${text}")
    string(APPEND page ".SS ${command}\n.nf\n${text}.fi\n")
endforeach()
string(APPEND page ".SH FILES
.TP
.I ~/.config/NuboShot/NuboShot.ini
the settings (keys beginning \\fBshot.\\fR)
.TP
.I ~/.local/share/NuboShot/
recent captures and other data
.SH ENVIRONMENT
.TP
.B NUBOSHOT_DEBUG=1
every debug line of every program of the suite on standard error
")
file(WRITE "${OUTPUT}" "${page}")
