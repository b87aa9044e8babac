// SPDX-License-Identifier: MIT
#pragma once

#include <QRectF>
#include <QString>

namespace quavix {

/// Where the keys of the on-screen keyboard lie: three octaves from C to B, keys 0 to 35 from the left.
class PianoPlan {
  public:
    static constexpr int Keys = 36;
    static constexpr int KeysPerGroup = 12;
    static constexpr int WhiteKeys = 21;

    /// Spreads the keys over a rectangle.
    explicit PianoPlan(const QRectF& place) : place_(place) {}

    static bool IsBlack(int key);
    /// A white key's letter, an empty text for a black one.
    static QString Caption(int key);
    /// The octave group: 0 (left) to 2.
    static int GroupOf(int key) { return key / KeysPerGroup; }

    QRectF KeyRect(int key) const;

    /// The key at a point, -1 where there is none. Black keys lie on top.
    int KeyAt(const QPointF& point) const;

  private:
    QRectF place_;
};

}  // namespace quavix
