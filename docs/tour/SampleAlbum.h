#pragma once

#include <QString>

namespace folimark::test {

/// Writes an album of a journey into a new folder: photographs with and without an orientation, other kinds
/// of images, documents, a film and a sound, all real files; and what must not appear in an album.
void WriteJourney(const QString& folder);
/// Writes a small album of photographs alone.
void WriteGarden(const QString& folder);

} // namespace folimark::test
