// A singly linked list that owns its elements, is appended to at the tail and keeps one walking cursor.
#pragma once

#include <memory>
#include <utility>

// Invariants:
// 1. Every element belongs to the list and is deleted with its node.
// 2. tail_ is the last node, or null exactly when head_ is null.
// 3. cursor_ is null (before a walk, or past its end) or a node of this list.
//
// The cursor serves `for (T* item = list.First(); item; item = list.Next())`. There is one of it: a walk inside a
// walk of the same list needs the iterators (begin, end), which leave the cursor alone.
template <typename T>
class TSList {
    struct Node {
        std::unique_ptr<T> value;
        Node* next = nullptr;
    };

public:
    template <typename Value>
    class Iterator {
    public:
        explicit Iterator(Node* node) : node_(node) {}
        Value& operator*() const { return *node_->value; }
        Value* operator->() const { return node_->value.get(); }
        Iterator& operator++() {
            node_ = node_->next;
            return *this;
        }
        bool operator==(const Iterator& other) const { return node_ == other.node_; }

    private:
        Node* node_;
    };

    TSList() = default;
    ~TSList() { RemoveAll(); }

    // A copy holds copies of the elements, in the same order; its cursor stands before the first.
    TSList(const TSList& other) {
        for (const T& value : other)
            Append(value);
    }
    TSList(TSList&& other) noexcept { Swap(other); }
    TSList& operator=(TSList other) noexcept {
        Swap(other);
        return *this;
    }

    // Puts an element behind the last; the list owns it from now on. Answers the element. Null is not taken.
    T* Append(std::unique_ptr<T> value) {
        if (!value) return nullptr;
        Node* node = new Node{std::move(value)};
        (tail_ ? tail_->next : head_) = node;
        tail_ = node;
        ++count_;
        return node->value.get();
    }
    T* Append(const T& value) { return Append(std::make_unique<T>(value)); }

    // Puts the cursor on the first element and answers it; null when the list is empty.
    T* First() {
        cursor_ = head_;
        return Current();
    }
    // Moves the cursor on and answers that element; null at the end and after it, until First.
    T* Next() {
        if (cursor_) cursor_ = cursor_->next;
        return Current();
    }
    // The element under the cursor; null before First and past the end.
    T* Current() const { return cursor_ ? cursor_->value.get() : nullptr; }

    // The first element that equals `value` (by T's operator==), null when there is none. Leaves the cursor alone.
    T* Find(const T& value) const {
        for (T& candidate : const_cast<TSList&>(*this))
            if (candidate == value) return &candidate;
        return nullptr;
    }

    // Deletes that element. A cursor on it moves back by one, so that Next answers the element that followed; when it
    // was the first, the cursor is past the end. False when the list holds no such element.
    bool Remove(const T* element) {
        Node* before = nullptr;
        for (Node* node = head_; node; before = node, node = node->next) {
            if (node->value.get() != element) continue;
            (before ? before->next : head_) = node->next;
            if (tail_ == node) tail_ = before;
            if (cursor_ == node) cursor_ = before;
            --count_;
            delete node;
            return true;
        }
        return false;
    }

    // Deletes every element.
    void RemoveAll() {
        while (head_)
            delete std::exchange(head_, head_->next);
        tail_ = cursor_ = nullptr;
        count_ = 0;
    }

    int GetCount() const { return count_; }
    bool IsEmpty() const { return head_ == nullptr; }

    Iterator<T> begin() { return Iterator<T>(head_); }
    Iterator<T> end() { return Iterator<T>(nullptr); }
    Iterator<const T> begin() const { return Iterator<const T>(head_); }
    Iterator<const T> end() const { return Iterator<const T>(nullptr); }

private:
    void Swap(TSList& other) noexcept {
        std::swap(head_, other.head_);
        std::swap(tail_, other.tail_);
        std::swap(cursor_, other.cursor_);
        std::swap(count_, other.count_);
    }

    Node* head_ = nullptr;
    Node* tail_ = nullptr;
    Node* cursor_ = nullptr;
    int count_ = 0;
};
