#pragma once
// Array<T>: the program's growable array. Element access is range-checked with a visible trap:
// a bad index shows a box captioned "Contactbook Tracer" and the access then goes ahead anyway.
// The trap catches programming errors during development and never changes control flow.

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <new>
#include <type_traits>
#include <utility>

#include "base/Alert.h"
#include "base/Str.h"

namespace array_detail {
/// Shows the range trap: text formatted from `format` with index and size.
void ShowRangeTrap(const char16_t* format, int index, int size);
/// Allocates raw storage for n elements of `bytes` each (logs and aborts when out of memory).
void* Allocate(size_t n, size_t bytes);
}  // namespace array_detail

template <typename T>
class Array {
  public:
    Array() = default;
    Array(const Array& other) { Copy(other); }
    Array& operator=(const Array& other) {
        if (this != &other)
            Copy(other);
        return *this;
    }
    ~Array() { SetSize(0); }

    int Size() const { return size_; }
    int Capacity() const { return capacity_; }
    bool IsEmpty() const { return size_ == 0; }
    T* Data() { return data_; }
    const T* Data() const { return data_; }

    /// The element at i (a copy); out of range shows the trap, then reads anyway.
    T GetAt(int i) const {
        if (i < 0 || i > size_ - 1) {
            array_detail::ShowRangeTrap(u"Array::GetAt index (%d) out of range (%d)", i, size_);
        }
        return data_[i];
    }
    /// Assigns the element at i; past the end shows the trap, then writes anyway.
    void SetAt(int i, const T& value) {
        if (i > size_ - 1) {
            array_detail::ShowRangeTrap(u"Array::SetAt index (%d) out of range (%d)", i, size_);
        }
        data_[i] = value;
    }
    /// Unchecked access for loops that stay in range by construction.
    T& operator[](int i) { return data_[i]; }
    const T& operator[](int i) const { return data_[i]; }

    /// Resizes to n: 0 frees the storage; growing past capacity takes growBy (or, when 0 or
    /// negative, size / 8 clamped to 4..1024) more, at least n, and moves elements bitwise.
    void SetSize(int n, int growBy = -1);
    /// Appends a copy of value; returns its index.
    int Add(const T& value) {
        int index = size_;
        SetSize(size_ + 1);
        data_[index] = value;
        return index;
    }
    /// Removes count elements at i, closing the gap.
    void RemoveAt(int i, int count = 1);
    /// Inserts value before index i (0..size).
    void InsertAt(int i, const T& value);
    void RemoveAll() { SetSize(0); }
    /// SetSize(other.size) then element-wise assignment.
    void Copy(const Array& other) {
        SetSize(other.size_);
        for (int i = 0; i < size_; ++i)
            data_[i] = other.data_[i];
    }

    T* begin() { return data_; }
    T* end() { return data_ + size_; }
    const T* begin() const { return data_; }
    const T* end() const { return data_ + size_; }

  private:
    void DestroyRange(int from, int to) {
        for (int i = from; i < to; ++i)
            data_[i].~T();
    }
    void ConstructRange(int from, int to) {
        for (int i = from; i < to; ++i)
            new (&data_[i]) T();
    }
    static T* AllocateElements(int n) {
        return static_cast<T*>(array_detail::Allocate(static_cast<size_t>(n), sizeof(T)));
    }

    T* data_ = nullptr;
    int size_ = 0;
    int capacity_ = 0;
    int growBy_ = 0;
};

template <typename T>
void Array<T>::SetSize(int n, int growBy) {
    if (growBy != -1)
        growBy_ = growBy;
    if (n <= 0) {
        DestroyRange(0, size_);
        std::free(data_);
        data_ = nullptr;
        size_ = capacity_ = 0;
        return;
    }
    if (data_ == nullptr) {
        data_ = AllocateElements(n);
        ConstructRange(0, n);
        size_ = capacity_ = n;
        return;
    }
    if (n <= capacity_) {
        if (n > size_) {
            ConstructRange(size_, n);
        } else {
            DestroyRange(n, size_);
        }
        size_ = n;
        return;
    }
    int step = growBy_;
    if (step <= 0) {
        step = size_ / 8;
        step = step < 4 ? 4 : (step > 1024 ? 1024 : step);
    }
    int newCapacity = n > capacity_ + step ? n : capacity_ + step;
    T* grown = AllocateElements(newCapacity);
    // Elements move bitwise: Str and the records built on it hold no self-references.
    std::memcpy(static_cast<void*>(grown), static_cast<const void*>(data_),
                static_cast<size_t>(size_) * sizeof(T));
    std::free(data_);
    data_ = grown;
    ConstructRange(size_, n);
    size_ = n;
    capacity_ = newCapacity;
}

template <typename T>
void Array<T>::RemoveAt(int i, int count) {
    if (i < 0 || count <= 0 || i + count > size_)
        return;
    for (int k = i; k + count < size_; ++k)
        data_[k] = std::move(data_[k + count]);
    SetSize(size_ - count);
}

template <typename T>
void Array<T>::InsertAt(int i, const T& value) {
    if (i < 0 || i > size_)
        return;
    T copy = value;  // value may live in this array
    SetSize(size_ + 1);
    for (int k = size_ - 1; k > i; --k)
        data_[k] = std::move(data_[k - 1]);
    data_[i] = std::move(copy);
}
