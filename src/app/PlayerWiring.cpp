#include "PlayerWiring.h"

#include "ProjectWindow.h"

// No player is linked into this build yet: movies then only name the subtitle files beside
// them, and everything else in the window works. The playback module's controllers plug in
// here through ProjectWindow::setPlayers().
void connectPlayers(ProjectWindow &window)
{
    (void)window;
}
