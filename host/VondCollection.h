#ifndef VOND_COLLECTION_H_
#define VOND_COLLECTION_H_

// The collection interfaces of the host library.

template <class T>
class VondIteratorT {
 public:
  virtual ~VondIteratorT() = default;
  virtual bool hasNext() = 0;
  // Called only after `hasNext` has returned true.
  virtual T& next() = 0;
  // Returns: false when the collection does not support it.
  virtual bool remove() = 0;
};

template <class T>
class VondCollectionT {
 public:
  virtual ~VondCollectionT() = default;
  // Returns: false on allocation failure.
  virtual bool add(const T& e) = 0;
  virtual void clear() = 0;
  virtual bool contains(const T& e) const = 0;
  virtual bool isEmpty() const = 0;
  // Removes the first equal element.
  // Returns: false when there is none.
  virtual bool remove(const T& e) = 0;
  virtual int size() const = 0;
  // Returns: a new iterator at the first element.
  // Null: returned on allocation failure.
  // Ownership: the caller deletes it.
  virtual VondIteratorT<T>* iterator() = 0;
};

#endif  // VOND_COLLECTION_H_
