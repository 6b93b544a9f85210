#pragma once

#include <QString>

namespace nubo {

// FFmpeg's own words for one of its status codes ("No space left on device").
QString mediaErrorText(int status);

} // namespace nubo
