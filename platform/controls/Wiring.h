#pragma once

#include "platform/controls/Cancel.h"
#include "platform/system/ErrorReport.h"

#include <QObject>
#include <QString>

#include <functional>
#include <initializer_list>
#include <tuple>
#include <type_traits>
#include <utility>

namespace wiring {

/// Whether the handler, a member function of the receiver or a callable of its own, takes arguments of these
/// types.
template <class Handler, class Receiver, class... Args>
constexpr bool takes()
{
    if constexpr (std::is_member_function_pointer_v<Handler>)
        return std::is_invocable_v<Handler, Receiver*, Args...>;
    else
        return std::is_invocable_v<Handler&, Args...>;
}

template <class Handler, class Receiver, class Signature, std::size_t... I>
constexpr bool takesFirst(std::index_sequence<I...>)
{
    return takes<Handler, Receiver, std::tuple_element_t<I, Signature>...>();
}

/// How many of the signal's arguments, from the first on, the handler takes: as many as it can.
template <class Handler, class Receiver, class Signature, std::size_t Count = std::tuple_size_v<Signature>>
constexpr std::size_t argumentsTaken()
{
    if constexpr (takesFirst<Handler, Receiver, Signature>(std::make_index_sequence<Count>())) {
        return Count;
    } else {
        static_assert(Count > 0, "the handler does not suit the signal");
        return argumentsTaken<Handler, Receiver, Signature, Count - 1>();
    }
}

template <class Argument>
void refuse(Argument& argument)
{
    if constexpr (std::is_same_v<Argument, Cancel>) argument = true;
}

/// Runs a handler under the common error report. One that failed, and was not repeated with success, refuses
/// what it was asked about: an error in a check must not let pass what it checks.
template <class Receiver, class Handler, class... Args>
void handle(Receiver* receiver, Handler& handler, Args&... args)
{
    const auto outcome = sys::underErrorReport({[&] {
        if constexpr (std::is_member_function_pointer_v<Handler>)
            std::invoke(handler, receiver, args...);
        else
            std::invoke(handler, args...);
    }});
    if (outcome != sys::Outcome::Done) (refuse(args), ...);
}

template <class Signature, class Sender, class Signal, class Receiver, class Handler, std::size_t... I>
void connect(const Sender* sender, Signal signal, Receiver* receiver, Handler handler,
             std::index_sequence<I...>)
{
    QObject::connect(sender, signal, receiver,
                     [receiver, handler](std::tuple_element_t<I, Signature>... args) mutable {
                         handle(receiver, handler, args...);
                     });
}

} // namespace wiring

/// Connects a signal to a handler under the common error report, so that no exception leaves a slot and ends
/// the host. The handler, a member function of the receiver or a callable, may take fewer arguments than the
/// signal has; a Cancel among them is set when it fails.
template <class Sender, class Declarer, class... Args, class Receiver, class Handler>
void verdrahte(const Sender* sender, void (Declarer::*signal)(Args...), Receiver* receiver, Handler handler)
{
    using Signature = std::tuple<Args...>;
    constexpr std::size_t Count = wiring::argumentsTaken<Handler, Receiver, Signature>();
    wiring::connect<Signature>(sender, signal, receiver, std::move(handler),
                               std::make_index_sequence<Count>());
}

/// Gives the elements of a control array their names: "Command7(0)", "Command7(1)" and so on.
void nummeriere(const QString& name, std::initializer_list<QObject*> elements);
