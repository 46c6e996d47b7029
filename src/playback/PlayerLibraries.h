#pragma once

#include <QString>

// The player libraries the program runs with, asked at run time.
// libmpv: its own version ("mpv 0.35.1"), else its client interface's ("client API 2.1").
QString mpvVersion();
// libVLC: "3.0.21 Vetinari".
QString vlcVersion();
