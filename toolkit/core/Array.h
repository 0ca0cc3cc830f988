#pragma once

#include "Exceptions.h"
#include "Text.h"

#include <concepts>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

namespace folimark {

/// A growing array with indexes from 0 to Ubound. It is a value: a copy has elements of its own. An index
/// outside raises OutOfBoundsException everywhere.
template <class T>
class Array {
  public:
    Array() = default;
    Array(std::initializer_list<T> elements) : elements_(elements) {}

    /// The highest index; -1 for an empty array.
    std::int64_t Ubound() const { return static_cast<std::int64_t>(elements_.size()) - 1; }

    /// Makes `ubound` the highest index (-1 empties the array). New elements are "", 0, False or nil. Raises
    /// OutOfBoundsException for an index below -1.
    void Redim(std::int64_t ubound) {
        if (ubound < -1) {
            throw OutOfBoundsException("No array can end at index " + Str(ubound) + ".");
        }
        elements_.resize(static_cast<std::size_t>(ubound + 1));
    }

    void Append(T value) { elements_.push_back(std::move(value)); }

    /// The elements above the index move down by one.
    void Remove(std::int64_t index) {
        elements_.erase(elements_.begin() + static_cast<std::ptrdiff_t>(Checked(index)));
    }

    /// The element by value: it stays whole even if what is done with it changes the array.
    T operator()(std::int64_t index) const { return elements_[Checked(index)]; }

    void Set(std::int64_t index, T value) { elements_[Checked(index)] = std::move(value); }

    const std::vector<T>& Elements() const { return elements_; }

    /// Puts the elements into a new order: `order[i]` is the old index of what will stand at index i.
    /// Raises OutOfBoundsException if the order isn't one of as many elements.
    void Reorder(const std::vector<std::size_t>& order) {
        if (order.size() != elements_.size()) {
            throw OutOfBoundsException("Arrays that are sorted together differ in length.");
        }
        std::vector<T> reordered;
        reordered.reserve(order.size());
        for (const std::size_t old : order) {
            reordered.push_back(std::move(elements_[old]));
        }
        elements_ = std::move(reordered);
    }

  private:
    std::size_t Checked(std::int64_t index) const {
        if (index < 0 || index > Ubound()) {
            throw OutOfBoundsException("Index " + Str(index) + " of an array that ends at " + Str(Ubound())
                                       + ".");
        }
        return static_cast<std::size_t>(index);
    }

    std::vector<T> elements_;
};

/// Sorts `keys` upwards in the order of CompareForSort and moves the elements of the others alike, so that
/// what stood at one index still does. Raises OutOfBoundsException, and moves nothing, if the lengths differ.
template <class... Others>
void SortWith(Array<std::string>& keys, Array<Others>&... others) {
    if (((others.Ubound() != keys.Ubound()) || ...)) {
        throw OutOfBoundsException("Arrays that are sorted together differ in length.");
    }
    const std::vector<std::size_t> order = SortedOrder({keys.Elements().begin(), keys.Elements().end()});
    keys.Reorder(order);
    (others.Reorder(order), ...);
}

/// The elements in order with the separator between them.
template <std::same_as<std::string> T>
std::string Join(const Array<T>& elements, std::string_view separator) {
    return Join(elements.Elements(), separator);
}

} // namespace folimark
