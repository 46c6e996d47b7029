#pragma once

#include <QRegularExpression>
#include <QStringView>

// Compiles a pattern of a format reader. The patterns are written for the usual desktop
// regular-expression semantics: "." stops at any line end (LF, CR, VT, FF, NEL, LS, PS) and
// "\s" is Unicode white space. PCRE on its own takes only LF as a line end and ASCII white
// space for "\s"; with that, the CR of a Windows line end would end up inside a captured
// text line. The "(*ANY)" prefix and Unicode properties make PCRE behave the usual way.
inline QRegularExpression readerPattern(QStringView pattern)
{
    QString source = QStringLiteral("(*ANY)");
    source.append(pattern);
    QRegularExpression expression(source, QRegularExpression::UseUnicodePropertiesOption);
    expression.optimize();
    return expression;
}
