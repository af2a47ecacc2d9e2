// The functions of the server's client library that we call. It brings some twenty libraries along, which a planner in
// a file has no use for; so it is loaded when the first link is opened.
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
    X(PQsendQuery)                                                                                                     \
    X(PQsendQueryParams)                                                                                               \
    X(PQsetNoticeProcessor)                                                                                            \
    X(PQsetnonblocking)                                                                                                \
    X(PQsocket)                                                                                                        \
    X(PQstatus)

struct ClientLibrary
{
#define ORRELIN_CLIENT_FUNCTION(name) decltype(&::name) name = nullptr;
    ORRELIN_CLIENT_FUNCTIONS(ORRELIN_CLIENT_FUNCTION)
#undef ORRELIN_CLIENT_FUNCTION

    // BrokenConnection if the library is not installed. It stays loaded once it is.
    static const ClientLibrary& Load();
};
