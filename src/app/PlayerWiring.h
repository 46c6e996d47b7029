#pragma once

class ProjectWindow;

// Gives the window its movie side: the libmpv and libVLC players, extraction of a movie's
// text tracks when it opens, and embedding subtitles into it. The program calls it once,
// before the window starts; it is the one place where the playback and media modules meet
// the window.
void connectPlayers(ProjectWindow &window);
