/* PulseAudio's client libraries, loaded with the first call (see
   OnFirstUse.inc): the tray starts without them and the sound-file
   libraries they bring. */
#define NUBO_LIBRARY pulse
#define NUBO_FUNCTIONS "PulseFunctions.def"
#include "OnFirstUse.inc"
