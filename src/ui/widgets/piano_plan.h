// SPDX-License-Identifier: MIT
#pragma once

#include <QRectF>
#include <QString>

namespace quavix {

/// The geometry of the on-screen keyboard: three octaves from C to B, keys 0 to 35 from the left.
class PianoPlan {
  public:
    static constexpr int Keys = 36;
    static constexpr int KeysPerGroup = 12;
    static constexpr int WhiteKeys = 21;

    /// Distributes the keys over a rectangle.
    explicit PianoPlan(const QRectF& place) : place_(place) {}

    static bool IsBlack(int key);
    /// Returns a white key's letter, an empty text for a black one.
    static QString Caption(int key);
    /// Returns the octave group: 0 (left) to 2.
    static int GroupOf(int key) { return key / KeysPerGroup; }

    QRectF KeyRect(int key) const;

    /// Returns the key at a point, or -1 if there is none. Black keys lie on top.
    int KeyAt(const QPointF& point) const;

  private:
    QRectF place_;
};

}  // namespace quavix
