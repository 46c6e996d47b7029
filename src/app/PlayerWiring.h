#pragma once

class ProjectWindow;

// Gives the window its movie players. The program calls it once, before the window starts;
// it is the one place where the playback module meets the window.
void connectPlayers(ProjectWindow &window);
