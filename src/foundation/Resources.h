#pragma once

#include <QString>

// The folder of the program's resource files (encoding rules, tables, translations), found
// in this order:
//   1. the folder named by the environment variable CAPTORA_RESOURCES, when it is set;
//   2. <folder of the running program>/../share/captora, where an installed program has it;
//   3. the source tree's resources/ folder, for programs run from the build tree.
// The first that exists is taken; the answer is computed once per process.
QString resourceDirectory();

// `relative` inside the resource folder ("encodings/English.encoding").
QString resourcePath(const QString &relative);
