#include "ProgramOptions.h"

#include <QLoggingCategory>

using namespace Qt::StringLiterals;

QStringList applyProgramOptions(const QStringList &arguments)
{
    QStringList rest = arguments.mid(1);
    const bool logCharacters = rest.removeAll(u"--log-characters"_s) > 0;
    QLoggingCategory::setFilterRules(logCharacters ? u"captora.encoding.characters=true"_s
                                                   : u"captora.encoding.characters=false"_s);
    return rest;
}
