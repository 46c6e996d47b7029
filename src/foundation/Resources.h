#pragma once

#include <QString>

// The folder of the program's data files (encoding rules, the ISO 639-2 map, the web
// search engines, translations). Looked up, in order: $CAPTORA_RESOURCES; "resources" next
// to the program; <prefix>/share/captora for an installed program (found from the program's
// own folder, <prefix>/bin); the source tree's resources folder, only for a program run from
// its build tree.
QString resourceDirectory();

// The path of one file in that folder.
QString resourcePath(const QString &relative);
