#ifndef VOND_COLLECTION_H_
#define VOND_COLLECTION_H_

// The collection interfaces of the host library.

template <class T>
class VondIteratorT {
 public:
  virtual ~VondIteratorT() = default;
  virtual bool hasNext() = 0;
  virtual T& next() = 0;      // only after hasNext() said true
  virtual bool remove() = 0;  // false where the collection does not support it
};

template <class T>
class VondCollectionT {
 public:
  virtual ~VondCollectionT() = default;
  virtual bool add(const T& e) = 0;  // false: no memory
  virtual void clear() = 0;
  virtual bool contains(const T& e) const = 0;
  virtual bool isEmpty() const = 0;
  virtual bool remove(const T& e) = 0;  // the first that is equal; false: there is none
  virtual int size() const = 0;
  virtual VondIteratorT<T>* iterator() = 0;  // new, the caller deletes it; null: no memory
};

#endif  // VOND_COLLECTION_H_
