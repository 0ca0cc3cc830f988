#pragma once

#include "Exceptions.h"

#include <cstddef>
#include <typeinfo>
#include <utility>

namespace folimark {

template <class T>
class Ref;

/// The base of all that is held by a handle. The count of handles lives in the object itself, and is not
/// atomic: all objects belong to the user-interface thread.
class Object {
  public:
    Object() = default;
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;
    virtual ~Object() = default;

  protected:
    /// `New` calls it once, when the first handle holds the object: the place for what may take handles of
    /// its own, which in a constructor would be the end of the object.
    virtual void Build() {}

  private:
    template <class T>
    friend class Ref;
    template <class T, class... Arguments>
    friend Ref<T> New(Arguments&&... arguments);
    mutable std::size_t handles_ = 0;
};

/// A counted handle on an Object, which may be nil. A member access through a nil handle raises
/// NilObjectException with the name of the class that was expected.
template <class T>
class Ref {
  public:
    Ref() = default;
    Ref(std::nullptr_t) {}
    /// Takes a share in `object`, which must come from `new` or be held by another handle already.
    explicit Ref(T* object) : object_(object) { Hold(); }
    Ref(const Ref& other) : object_(other.object_) { Hold(); }
    Ref(Ref&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    template <class U>
    Ref(const Ref<U>& other) : object_(other.Get()) {
        Hold();
    }
    ~Ref() { Drop(); }

    Ref& operator=(Ref other) noexcept {
        std::swap(object_, other.object_);
        return *this;
    }

    T* operator->() const { return &Checked(); }
    T& operator*() const { return Checked(); }
    T* Get() const { return object_; }
    explicit operator bool() const { return object_ != nullptr; }

    /// Identity, not equality of content: do both handles hold the same object?
    template <class U>
    bool operator==(const Ref<U>& other) const {
        return object_ == other.Get();
    }
    bool operator==(std::nullptr_t) const { return object_ == nullptr; }

    /// The same object as a handle of a derived class; nil if it is of another class.
    template <class U>
    Ref<U> As() const {
        return Ref<U>(dynamic_cast<U*>(object_));
    }

  private:
    T& Checked() const {
        if (object_ == nullptr) {
            throw NilObjectException(ClassNameOf(typeid(T)));
        }
        return *object_;
    }
    void Hold() const {
        if (object_ != nullptr) {
            ++object_->Object::handles_;
        }
    }
    void Drop() {
        if (object_ != nullptr && --object_->Object::handles_ == 0) {
            delete object_;
        }
    }

    T* object_ = nullptr;
};

/// Makes an object and its first handle, and builds it.
template <class T, class... Arguments>
Ref<T> New(Arguments&&... arguments) {
    Ref<T> made(new T(std::forward<Arguments>(arguments)...));
    static_cast<Object&>(*made).Build();
    return made;
}

} // namespace folimark
