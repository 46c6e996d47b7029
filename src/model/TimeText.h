#pragma once

#include <QString>
#include <QStringView>

// Low-level pieces shared by the time transformers and the file readers.
namespace TimeText {

// Reads a time text: the fraction after the last `decimal` (else the last `alternate`),
// digit by digit from its end; the part before it split at the last two ":" into hours,
// minutes and seconds, each read as a leading decimal number. Never fails.
double parse(QStringView text, QStringView decimal, QStringView alternate);

// The leading decimal number of `text` after white space, ignoring what follows; 0 when
// there is none.
double leadingDouble(QStringView text);

// The leading integer of `text` after white space, with an optional sign; 0 when there is
// none. Saturates instead of overflowing.
qint64 leadingInteger(QStringView text);

// Appends `value` as printf's "%0<width>d" would print it.
void appendPadded(QString &out, qint64 value, int width);

// Converts like a C cast of a double to int on x86: NaN and values outside the range of
// int give INT_MIN instead of undefined behaviour.
int toInt(double value);

} // namespace TimeText
