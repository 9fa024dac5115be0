/// The product of two doubles without any rounding error.
#pragma once

namespace unitlib {

/// Hi + Lo is the exact product, Hi its nearest double. After Dekker (1971); a fused multiply-add would be
/// shorter, but not every C library rounds its own right. Both factors and the product must stay below 1e290,
/// the product above 1e-290.
struct TExactProduct {
  double Hi;
  double Lo;

  constexpr TExactProduct(double A, double B) : Hi(A * B), Lo(0.0) {
    const double AHigh = HighPart(A), ALow = A - AHigh, BHigh = HighPart(B), BLow = B - BHigh;
    Lo = ((AHigh * BHigh - Hi) + AHigh * BLow + ALow * BHigh) + ALow * BLow;
  }

private:
  /// The upper 26 bits.
  static constexpr double HighPart(double Value) {
    const double Shifted = 134217729.0 * Value; // 2^27 + 1
    return Shifted - (Shifted - Value);
  }
};

inline constexpr double PowersOf10[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                        1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                        1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22}; // all exact

} // namespace unitlib
