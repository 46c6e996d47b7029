#pragma once

class ProjectWindow;

// Gives the window its web search: "Download via Web Search" (the File menu, Ctrl+Shift+D,
// the language pop-up, and after an extraction that found nothing) opens the search window
// as the project's "WebSearch" sheet, searching the movie's name; what it downloads is
// loaded into the project. Removes what an earlier run's search windows left in the
// temporary folder. Call once, after connectPlayers() and before the window starts.
void connectWebSearch(ProjectWindow &window);
