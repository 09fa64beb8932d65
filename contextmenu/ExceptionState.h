// Where the C++ runtime records a thread's exceptions: the caught ones and the number of uncaught ones. By
// default it allocates this record for each thread that throws, and a thread-local slot for all of them, and
// frees neither when the module is unloaded. Here the record lies on the stack of the call that may throw,
// and the slot is freed at unloading. Code of the module may throw only while the calling thread has one of
// these.
#pragma once

class ExceptionState {
public:
    // Allocates the thread-local slot when the module is loaded; false if the process has none left.
    static bool AllocateSlot();
    // Frees it when the module is unloaded.
    static void FreeSlot();

    // Becomes the record of the calling thread. The previous one, of a call further up the stack, is restored
    // by the destructor, which must run on the same thread.
    ExceptionState();
    ~ExceptionState();
    ExceptionState(const ExceptionState&) = delete;
    ExceptionState& operator=(const ExceptionState&) = delete;

    // False if there was no memory to set the slot. Then nothing may be thrown.
    explicit operator bool() const { return isSet_; }

private:
    // The layout that the binary interface of C++ prescribes.
    struct Record {
        void* caughtExceptions;
        unsigned int uncaughtExceptions;
    };

    Record record_ = {};
    void* const previous_;
    const bool isSet_;
};
