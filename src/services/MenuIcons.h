// The pictures of menu entries, by the suite's numbers for them and ours: one drawing of our own, in the
// colour of the menu's text.
#pragma once

#include <QIcon>

// Numbers of our own, behind the suite's.
enum MenuImage {
    kImageCopyCell = 601,
    kImagePasteCell,
    kImageUndo,
    kImageRedo,
    kImagePreview,
    kImageCarry,
    kImageUsage,
    kImageDetail,
    kImageTaxCheck,
    kImageRecord
};

// Null where the number has none.
QIcon Menu_Icon(int image);
