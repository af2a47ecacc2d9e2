// The functions of the server's client library that we call. It loads some twenty other libraries, which planners in
// files do not need, so it is loaded with the first link.
#pragma once

#include <libpq-fe.h>

#define ORRELIN_CLIENT_FUNCTIONS(X)                                                                                    \
    X(PQbackendPID)                                                                                                    \
    X(PQclear)                                                                                                         \
    X(PQconnectdb)                                                                                                     \
    X(PQconsumeInput)                                                                                                  \
    X(PQerrorMessage)                                                                                                  \
    X(PQexec)                                                                                                          \
    X(PQfinish)                                                                                                        \
    X(PQflush)                                                                                                         \
    X(PQfreemem)                                                                                                       \
    X(PQftype)                                                                                                         \
    X(PQgetResult)                                                                                                     \
    X(PQgetisnull)                                                                                                     \
    X(PQgetlength)                                                                                                     \
    X(PQgetvalue)                                                                                                      \
    X(PQisBusy)                                                                                                        \
    X(PQnfields)                                                                                                       \
    X(PQnotifies)                                                                                                      \
    X(PQntuples)                                                                                                       \
    X(PQresultErrorField)                                                                                              \
    X(PQresultErrorMessage)                                                                                            \
    X(PQresultStatus)                                                                                                  \
    X(PQsendPrepare)                                                                                                   \
    X(PQsendQuery)                                                                                                     \
    X(PQsendQueryParams)                                                                                               \
    X(PQsendQueryPrepared)                                                                                             \
    X(PQsetNoticeProcessor)                                                                                            \
    X(PQsetnonblocking)                                                                                                \
    X(PQsocket)                                                                                                        \
    X(PQstatus)

struct ClientLibrary
{
#define ORRELIN_CLIENT_FUNCTION(name) decltype(&::name) name = nullptr;
    ORRELIN_CLIENT_FUNCTIONS(ORRELIN_CLIENT_FUNCTION)
#undef ORRELIN_CLIENT_FUNCTION

    // BrokenConnection if the library is not installed. Once loaded it stays loaded.
    static const ClientLibrary& Load();
};
