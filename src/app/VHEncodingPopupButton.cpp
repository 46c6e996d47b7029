#include "VHEncodingPopupButton.h"

#include "VHEncoding.h"

VHEncodingPopupButton::VHEncodingPopupButton(QWidget *parent)
    : QComboBox(parent)
{
    for (const VHEncoding &entry : VHEncoding::catalogue()) {
        if (entry.isSeparator())
            insertSeparator(count());
        else
            addItem(entry.name(), QVariant::fromValue<EncodingId>(entry.codePage()));
    }
    setMaxVisibleItems(24);
    connect(this, &QComboBox::activated, this, [this](int index) {
        selectItemWithEncoding(itemData(index).value<EncodingId>());
        if (action)
            action();
    });
}

EncodingId VHEncodingPopupButton::selectedEncoding() const
{
    return currentIndex() < 0 ? Encodings::None : currentData().value<EncodingId>();
}

void VHEncodingPopupButton::selectItemWithEncoding(EncodingId encoding)
{
    for (int i = 0; i < count(); ++i) {
        const QVariant tag = itemData(i);
        if (tag.isValid() && tag.value<EncodingId>() == encoding) {
            setCurrentIndex(i);
            return;
        }
    }
    setCurrentIndex(-1);
}
