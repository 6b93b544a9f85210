/* FFmpeg's functions, loaded with the first call (see OnFirstUse.inc): the
   tray starts without FFmpeg and the hundred libraries it brings. */
#define NUBO_LIBRARY ffmpeg
#define NUBO_FUNCTIONS "FFmpegFunctions.def"
#include "OnFirstUse.inc"
