#pragma once
// Holds one COM reference and releases it, so every interface pointer is released by the
// function or object that took it.

template <typename T>
class ComRef {
  public:
    ComRef() = default;
    ~ComRef() { Reset(); }
    ComRef(const ComRef&) = delete;
    ComRef& operator=(const ComRef&) = delete;
    T* Get() const { return p_; }
    /// Releases what is held and gives the slot to a call that returns a new reference.
    T** Out() {
        Reset();
        return &p_;
    }
    T* operator->() const { return p_; }
    explicit operator bool() const { return p_ != nullptr; }
    /// Hands the reference to the caller, who releases it.
    T* Detach() {
        T* p = p_;
        p_ = nullptr;
        return p;
    }
    void Reset() {
        if (p_ != nullptr)
            p_->Release();
        p_ = nullptr;
    }

  private:
    T* p_ = nullptr;
};
