// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

// Only for builds with ThreadSanitizer, of which the distribution's Qt knows nothing. The calls by
// which the code under test hands something to another thread through Qt are defined here again, so
// that they come before Qt's: each tells the sanitizer of the order that Qt keeps by locks which
// the sanitizer cannot see, and goes on to Qt.

#include <QFutureInterface>
#include <QObject>
#include <QScopeGuard>

#include <cstdarg>

#include <dlfcn.h>
#include <sanitizer/tsan_interface.h>
#include <sched.h>

namespace {

template <typename Function>
Function *next(const char *mangledName)
{
    void *function = ::dlsym(RTLD_NEXT, mangledName);
    if (!function)
        qFatal("No %s in Qt", mangledName);
    return reinterpret_cast<Function *>(function);
}

// A future's shared state, by which its two sides find each other: the field behind the table of
// virtual functions.
void *sharedState(const QFutureInterfaceBase *future)
{
    static_assert(sizeof(QFutureInterfaceBase) == 2 * sizeof(void *));
    return reinterpret_cast<void *const *>(future)[1];
}

// Receives a queued call on the thread for which it is meant.
class QueuedCall : public QtPrivate::QSlotObjectBase
{
public:
    explicit QueuedCall(QSlotObjectBase *call) : QSlotObjectBase(&perform), m_call(call)
    {
        __tsan_release(this);
    }

private:
    static void perform(int which, QSlotObjectBase *base, QObject *receiver, void **arguments,
                        bool *)
    {
        auto *self = static_cast<QueuedCall *>(base);
        __tsan_acquire(self);
        if (which == Call) {
            self->m_call->call(receiver, arguments);
            __tsan_release(self); // the other side may be the one that destroys it
        } else if (which == Destroy) {
            self->m_call->destroyIfLastRef();
            delete self;
        }
    }

    QSlotObjectBase *m_call;
};

} // namespace

void QFutureInterfaceBase::reportFinished()
{
    __tsan_release(sharedState(this));
    static const auto report =
        next<void(QFutureInterfaceBase *)>("_ZN20QFutureInterfaceBase14reportFinishedEv");
    report(this);
}

void QFutureInterfaceBase::waitForFinished()
{
    static const auto wait =
        next<void(QFutureInterfaceBase *)>("_ZN20QFutureInterfaceBase15waitForFinishedEv");
    const auto acquire = qScopeGuard([this] { __tsan_acquire(sharedState(this)); });
    wait(this);
}

void QFutureInterfaceBase::waitForResult(int index)
{
    static const auto wait =
        next<void(QFutureInterfaceBase *, int)>("_ZN20QFutureInterfaceBase13waitForResultEi");
    const auto acquire = qScopeGuard([this] { __tsan_acquire(sharedState(this)); });
    wait(this, index);
}

// The last owner frees the result and the state, whichever thread that is.
bool QFutureInterfaceBase::derefT() const
{
    static const auto deref =
        next<bool(const QFutureInterfaceBase *)>("_ZNK20QFutureInterfaceBase6derefTEv");
    __tsan_release(sharedState(this));
    const bool hasOthers = deref(this);
    __tsan_acquire(sharedState(this));
    return hasOthers;
}

bool QMetaObject::invokeMethodImpl(QObject *object, QtPrivate::QSlotObjectBase *call,
                                   Qt::ConnectionType type, void *result)
{
    using Invoke = bool(QObject *, QtPrivate::QSlotObjectBase *, Qt::ConnectionType, void *);
    static const auto invoke = next<Invoke>(
        "_ZN11QMetaObject16invokeMethodImplEP7QObjectPN9QtPrivate15QSlotObjectBaseEN2Qt14"
        "ConnectionTypeEPv");
    return invoke(object, type == Qt::QueuedConnection ? new QueuedCall(call) : call, type, result);
}

// Qt starts a program from a child that shares its parent's memory until then. The sanitizer would
// note in that memory that this is a forked child now, which it does not watch, and so would stop
// watching the parent.

extern "C" int __clone(int (*function)(void *), void *stack, int flags, void *argument, ...);

extern "C" int clone(int (*function)(void *), void *stack, int flags, void *argument, ...)
{
    va_list more;
    va_start(more, argument);
    void *parentId = va_arg(more, void *);
    void *storage = va_arg(more, void *);
    void *childId = va_arg(more, void *);
    va_end(more);
    return __clone(function, stack, flags, argument, parentId, storage, childId);
}
