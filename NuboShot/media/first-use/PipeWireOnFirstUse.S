/* PipeWire's client library, loaded with the first call (see
   OnFirstUse.inc): only the desktop portal's streams need it, and an X11
   session never does. */
#define NUBO_LIBRARY pipewire
#define NUBO_FUNCTIONS "PipeWireFunctions.def"
#include "OnFirstUse.inc"
