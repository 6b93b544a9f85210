/* Tesseract, loaded with the first call (see OnFirstUse.inc): the programs
   that recognise text start without it, its image libraries and OpenMP. */
#define NUBO_LIBRARY tesseract
#define NUBO_FUNCTIONS "TesseractFunctions.def"
#include "OnFirstUse.inc"
