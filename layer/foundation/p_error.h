#pragma once

#include "layer/foundation/p_shared_data_ptr.h"
#include "layer/foundation/p_string.h"

class PErrorPrivate;

// An error as a value: cheap to copy, detached before a change, and fit to throw. Code 0 means
// no error.
class PError {
public:
    PError();
    PError(int code, const PString& message);
    PError(int code, const PString& message, const PString& module, const PString& method,
           int line);
    // No move: a copy costs one count, and every error keeps a block.
    PError(const PError& other);
    PError& operator=(const PError& other);
    ~PError();

    int code() const;
    PString message() const;
    PString module() const;
    PString method() const;
    int line() const;

    void setError(int code, const PString& message);
    void setInfo(const PString& module, const PString& method, int line);
    // Takes a fresh block, so copies keep their error.
    void clear();

    // module:method:line[code]message, leaving out what is empty or zero.
    PString toString() const;

private:
    PSharedDataPtr<PErrorPrivate> d;
};
