#pragma once

class ProgressWindow;
class ProjectWindow;

// Gives the window its movie side: the libmpv and libVLC players, extraction of a movie's
// text tracks when it opens, and embedding subtitles into it through the embedding options
// and the task list. The program calls it once, before the window starts; it is the one
// place where the playback and media modules meet the window. Without a task list one is
// made for the window; the one in use is returned.
ProgressWindow *connectPlayers(ProjectWindow &window, ProgressWindow *progress = nullptr);
