#pragma once

namespace Orlix {

/// Base of the model classes that are handled through pointers; copyable and movable.
class BaseEntity {
 public:
  BaseEntity() = default;
  BaseEntity(const BaseEntity&) = default;
  BaseEntity(BaseEntity&&) = default;
  BaseEntity& operator=(const BaseEntity&) = default;
  BaseEntity& operator=(BaseEntity&&) = default;
  virtual ~BaseEntity() = default;
};

}  // namespace Orlix
