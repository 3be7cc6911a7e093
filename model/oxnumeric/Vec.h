#pragma once

#include <cmath>

namespace Orlix {

/// Two numbers; as a point of the section plane x holds y [m] and y holds z [m].
template <class T>
struct Vec2 {
  T x{};
  T y{};

  friend bool operator==(const Vec2&, const Vec2&) = default;
  friend Vec2 operator+(Vec2 a, Vec2 b) { return {a.x + b.x, a.y + b.y}; }
  friend Vec2 operator-(Vec2 a, Vec2 b) { return {a.x - b.x, a.y - b.y}; }
  friend Vec2 operator*(T s, Vec2 a) { return {s * a.x, s * a.y}; }
};

template <class T>
T Dot(Vec2<T> a, Vec2<T> b) {
  return a.x * b.x + a.y * b.y;
}

/// z component of the vector product: twice the signed area of the triangle (0, a, b).
template <class T>
T Cross(Vec2<T> a, Vec2<T> b) {
  return a.x * b.y - a.y * b.x;
}

template <class T>
T Length(Vec2<T> a) {
  return std::hypot(a.x, a.y);
}

/// Three numbers; strain planes are (eps0, kyy, kzz), resultants (N, Myy, Mzz).
template <class T>
struct Vec3 {
  T x{};
  T y{};
  T z{};

  friend bool operator==(const Vec3&, const Vec3&) = default;
  friend Vec3 operator+(const Vec3& a, const Vec3& b) { return {a.x + b.x, a.y + b.y, a.z + b.z}; }
  friend Vec3 operator-(const Vec3& a, const Vec3& b) { return {a.x - b.x, a.y - b.y, a.z - b.z}; }
  friend Vec3 operator*(T s, const Vec3& a) { return {s * a.x, s * a.y, s * a.z}; }
  Vec3& operator+=(const Vec3& b) { return *this = *this + b; }
};

template <class T>
T Dot(const Vec3<T>& a, const Vec3<T>& b) {
  return a.x * b.x + a.y * b.y + a.z * b.z;
}

/// Euclidean length: the square root of the sum of squares.
template <class T>
T Length(const Vec3<T>& a) {
  return std::sqrt(Dot(a, a));
}

template <class T>
bool IsFinite(const Vec3<T>& a) {
  return std::isfinite(a.x) && std::isfinite(a.y) && std::isfinite(a.z);
}

}  // namespace Orlix
