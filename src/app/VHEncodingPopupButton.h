#pragma once

#include "EncodingTable.h"

#include <QComboBox>

#include <functional>

// The pop-up that offers the catalogue of encodings (VHEncoding) wherever the user chooses
// one: one item per encoding, titled with its name and tagged with its number, and a
// separator where the catalogue has one. "Automatic" is 0.
//
// Two rows of the catalogue name the same number under two names; whichever the user
// picks, the first item with that number ends up selected, so a number always shows under
// one name.
class VHEncodingPopupButton : public QComboBox
{
public:
    explicit VHEncodingPopupButton(QWidget *parent = nullptr);

    // The number of the selected item; 0 when none is selected.
    EncodingId selectedEncoding() const;
    // Selects the first item with the number; none when the catalogue lacks it.
    void selectItemWithEncoding(EncodingId encoding);

    // Called after the user chose an item (not when the program selects one).
    std::function<void()> action;
};
