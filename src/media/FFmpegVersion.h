#pragma once

#include <QString>

// The FFmpeg libraries the program runs with (asked at run time, not the headers it was
// built against): "6.1.1 (libavformat 60.16.100, libavcodec 60.31.102, libavutil 58.29.100)".
QString ffmpegVersion();
