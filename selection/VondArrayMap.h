#ifndef VOND_ARRAY_MAP_H_
#define VOND_ARRAY_MAP_H_

#include <cstdint>
#include <cstdlib>
#include <new>
#include <utility>

#include "VondCollection.h"

// An insertion-ordered list and a map on top of it: contiguous storage, linear search. Made for small tables
// that are filled once, by an owner that reserves their size.
// Errors: false (or -1) as each operation says; nothing throws, nothing logs.
// Threads: no locking. Once filled, any number of threads may read.

template <class T>
class VondArrayListT;

template <class T>
class VondArrayListIteratorT final : public VondIteratorT<T> {
 public:
  explicit VondArrayListIteratorT(VondArrayListT<T>* list) : list_(list) {}

  bool hasNext() override { return index_ < list_->size(); }
  T& next() override { return list_->get(index_++); }
  bool remove() override { return false; }  // not supported

 private:
  VondArrayListT<T>* list_;  // outlives the iterator
  int index_ = 0;
};

template <class T>
class VondArrayListT : public VondCollectionT<T> {
 public:
  VondArrayListT() = default;
  ~VondArrayListT() override {
    clear();
    std::free(data_);
  }
  VondArrayListT(const VondArrayListT&) = delete;
  VondArrayListT& operator=(const VondArrayListT&) = delete;

  bool add(const T& e) override {
    T copy(e);  // before the storage grows: `e` may be an entry of this list
    if (size_ >= capacity_ && !growCapacity(capacity_ + 1)) return false;
    new (data_ + size_) T(std::move(copy));
    ++size_;
    return true;
  }
  void clear() override {  // the storage stays
    while (size_ > 0) data_[--size_].~T();
  }
  bool contains(const T& e) const override { return indexOf(e) != -1; }
  bool isEmpty() const override { return size_ == 0; }
  bool remove(const T& e) override {
    const int index = indexOf(e);
    return index != -1 && removeAt(index);
  }
  int size() const override { return size_; }
  VondArrayListIteratorT<T>* iterator() override {
    return new (std::nothrow) VondArrayListIteratorT<T>(this);
  }

  // Copies entry `index` into `*out`; false when there is no such entry or `out` is null.
  virtual bool get(int index, T* out) const {
    if (index < 0 || index >= size_ || out == nullptr) return false;
    if (out != &data_[index]) *out = data_[index];
    return true;
  }
  virtual T& get(int index) { return data_[index]; }  // unchecked
  virtual const T& get(int index) const { return data_[index]; }
  virtual int indexOf(const T& e) const {  // the first that is equal, or -1
    for (int i = 0; i < size_; ++i) {
      if (data_[i] == e) return i;
    }
    return -1;
  }
  virtual bool removeAt(int index) { return removeAt(index, 1); }

  // Removes `n` entries from `index` on; the caller keeps them within the list.
  bool removeAt(int index, int n) {
    if (index < 0 || index >= size_) return false;
    if (n <= 0) return true;
    for (int i = index + n - 1; i >= index; --i) data_[i].~T();
    for (int i = index + n; i < size_; ++i) relocate(data_ + i, data_ + i - n);
    size_ -= n;
    return true;
  }

  // Makes room for `n` entries; false when there is no memory.
  bool growCapacity(int n) {
    if (capacity_ >= n) return true;
    if (static_cast<size_t>(n) > SIZE_MAX / sizeof(T)) return false;
    T* grown = static_cast<T*>(std::malloc(static_cast<size_t>(n) * sizeof(T)));
    if (grown == nullptr) return false;
    for (int i = 0; i < size_; ++i) relocate(data_ + i, grown + i);
    std::free(data_);
    data_ = grown;
    capacity_ = n;
    return true;
  }
  int capacity() const { return capacity_; }

 private:
  static void relocate(T* from, T* to) {
    new (to) T(std::move(*from));
    from->~T();
  }

  int size_ = 0;
  int capacity_ = 0;
  T* data_ = nullptr;  // entries 0 to size_-1 are constructed, the rest is raw storage
};

template <class K, class V>
struct VondMapEntryT {
  K key;
  V value;

  friend bool operator==(const VondMapEntryT& a, const VondMapEntryT& b) {
    return a.key == b.key && a.value == b.value;
  }
};

template <class K, class V>
class VondArrayMapT {
 public:
  VondArrayMapT() = default;
  explicit VondArrayMapT(int capacity) { list_.growCapacity(capacity); }
  virtual ~VondArrayMapT() = default;

  virtual void clear() { list_.clear(); }
  virtual int size() const { return list_.size(); }
  virtual bool containsKey(const K& key) const { return positionOf(key) != -1; }
  virtual bool containsValue(const V& value) const {
    for (int i = 0; i < size(); ++i) {
      if (list_.get(i).value == value) return true;
    }
    return false;
  }
  // On a hit points `value` at the entry's value; otherwise false, and `value` stays.
  virtual bool get(const K& key, const V*& value) const {
    const int position = positionOf(key);
    if (position == -1) return false;
    value = &list_.get(position).value;
    return true;
  }
  // The value under `key`, or a value that reads as V() and is not an entry: nobody writes through it.
  virtual V& get(const K& key) {
    static V missing{};
    const int position = positionOf(key);
    return position == -1 ? missing : list_.get(position).value;
  }
  virtual const V& get(const K& key) const {
    static const V missing{};
    const int position = positionOf(key);
    return position == -1 ? missing : list_.get(position).value;
  }
  // Never overwrites: false when the key is there already, or when there is no memory.
  virtual bool put(const K& key, const V& value) { return !containsKey(key) && list_.add({key, value}); }
  virtual bool remove(const K& key) { return list_.removeAt(positionOf(key), 1); }
  // Adds every key (value) to `out` in entry order; false when `out` refused one.
  virtual bool getKeys(VondCollectionT<K>& out) const {
    bool all = true;
    for (int i = 0; i < size(); ++i) all = out.add(list_.get(i).key) && all;
    return all;
  }
  virtual bool getValues(VondCollectionT<V>& out) const {
    bool all = true;
    for (int i = 0; i < size(); ++i) all = out.add(list_.get(i).value) && all;
    return all;
  }

 private:
  int positionOf(const K& key) const {
    for (int i = 0; i < list_.size(); ++i) {
      if (list_.get(i).key == key) return i;
    }
    return -1;
  }

  VondArrayListT<VondMapEntryT<K, V>> list_;
};

#endif  // VOND_ARRAY_MAP_H_
