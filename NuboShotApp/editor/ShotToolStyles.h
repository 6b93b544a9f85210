#pragma once

#include "document/ShotStyle.h"
#include "editor/ShotToolKind.h"

namespace nubo {

class ShotPreferences;

// The style each tool gives new annotations, kept under
// "shot.style.<tool>". A missing or damaged value reads as the tool's
// default (text at 20 points, emoji at 48, everything else the plain style).
ShotStyle storedToolStyle(const ShotPreferences& preferences, ShotToolKind tool);
ShotStyle defaultToolStyle(ShotToolKind tool);
void storeToolStyle(ShotPreferences& preferences, ShotToolKind tool, const ShotStyle& style);

} // namespace nubo
