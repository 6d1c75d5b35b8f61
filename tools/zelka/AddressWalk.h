#pragma once

#include <QString>

#include <functional>

class NetworkSession;

/// A node that answered.
struct AnsweringNode
{
    int address = 0;
    /// Empty when it does not tell.
    QString type;
    QString identification;
};

/// Which addresses are asked, and how.
struct AddressRange
{
    int begin = 0;
    int end = 0;
    /// As they go into the target of each request; empty: none.
    QString retries;
    QString timeOut;
    /// Milliseconds from one address to the next, at least; 0: as fast as answers come.
    int interval = 0;
};

/// Asks each address behind an opened connection who is there, one after the other, and hands over each node
/// that answers as soon as it has.
///
/// Ends early when the session is over. Raises CommandError (NetworkUnavailable) when the connection itself
/// has failed; an address that is silent or refuses is none.
void WalkAddresses(const NetworkSession& session, const AddressRange& range,
                   const std::function<void(const AnsweringNode& node)>& found);
