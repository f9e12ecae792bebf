// For the thread sanitizer alone. Qt is built without it, so that it does not see what orders those who hand
// work to a pool, or a call to another thread, and those who carry it out. These stand before Qt's functions
// of the same name, note both ends, and call them.

#include <QObject>
#include <QThreadPool>
#include <functional>
#include <memory>

#include <dlfcn.h>
#include <sanitizer/tsan_interface.h>

namespace {

/// Qt's own function by its name as linkers know it.
template <class Function>
Function* inQt(const char* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

/// A call that notes both ends.
struct OrderedCall : QtPrivate::QSlotObjectBase {
    explicit OrderedCall(QSlotObjectBase* given) : QSlotObjectBase(&carryOut), call(given) {}

    static void carryOut(int which, QSlotObjectBase* base, QObject* receiver, void** arguments, bool* same) {
        auto* self = static_cast<OrderedCall*>(base);
        __tsan_acquire(self);
        if (which == Call) self->call->call(receiver, arguments);
        __tsan_release(self);
        if (which == Compare) *same = false;
        if (which != Destroy) return;
        self->call->destroyIfLastRef();
        delete self;
    }

    QSlotObjectBase* call;
};

}

void QThreadPool::start(std::function<void()> work, int priority) {
    static auto* const start =
        inQt<void(QThreadPool*, std::function<void()>, int)>("_ZN11QThreadPool5startESt8functionIFvvEEi");
    const auto kept = std::make_shared<std::function<void()>>(std::move(work));
    __tsan_release(kept.get());
    start(
        this,
        [this, kept] {
            __tsan_acquire(kept.get());
            (*kept)();
            *kept = nullptr;
            __tsan_release(this);
        },
        priority);
}

bool QThreadPool::waitForDone(int milliseconds) {
    static auto* const wait = inQt<bool(QThreadPool*, int)>("_ZN11QThreadPool11waitForDoneEi");
    const bool done = wait(this, milliseconds);
    __tsan_acquire(this);
    return done;
}

/// The pool's destructor, which waits too.
extern "C" void endPool(QThreadPool* pool) __asm__("_ZN11QThreadPoolD1Ev");
extern "C" void endPool(QThreadPool* pool) {
    static auto* const end = inQt<void(QThreadPool*)>("_ZN11QThreadPoolD1Ev");
    end(pool);
    __tsan_acquire(pool);
}

bool QMetaObject::invokeMethodImpl(QObject* object, QtPrivate::QSlotObjectBase* call, Qt::ConnectionType type,
                                   void* answer) {
    static auto* const invoke = inQt<bool(QObject*, QtPrivate::QSlotObjectBase*, Qt::ConnectionType, void*)>(
        "_ZN11QMetaObject16invokeMethodImplEP7QObjectPN9QtPrivate15QSlotObjectBaseEN2Qt14ConnectionTypeEPv");
    auto* ordered = new OrderedCall(call);
    __tsan_release(ordered);
    return invoke(object, ordered, type, answer);
}
