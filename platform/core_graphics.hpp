// Geometric values with the platform's memory layout. Lengths are in points; the origin is at the top left.
#pragma once

#include <cstdint>

#include "objc/encoding.hpp"

using CGFloat = double;

struct CGPoint {
  CGFloat x = 0;
  CGFloat y = 0;
  friend bool operator==(const CGPoint&, const CGPoint&) = default;
};

struct CGSize {
  CGFloat width = 0;
  CGFloat height = 0;
  friend bool operator==(const CGSize&, const CGSize&) = default;
};

struct CGRect {
  CGPoint origin;
  CGSize size;
  friend bool operator==(const CGRect&, const CGRect&) = default;
};

struct UIEdgeInsets {
  CGFloat top = 0;
  CGFloat left = 0;
  CGFloat bottom = 0;
  CGFloat right = 0;
  friend bool operator==(const UIEdgeInsets&, const UIEdgeInsets&) = default;
};

template <>
struct objc::TypeEncoding<CGPoint> : objc::EncodingText<"{CGPoint=dd}"> {};
template <>
struct objc::TypeEncoding<CGSize> : objc::EncodingText<"{CGSize=dd}"> {};
template <>
struct objc::TypeEncoding<CGRect> : objc::EncodingText<"{CGRect={CGPoint=dd}{CGSize=dd}}"> {};
template <>
struct objc::TypeEncoding<UIEdgeInsets> : objc::EncodingText<"{UIEdgeInsets=dddd}"> {};
