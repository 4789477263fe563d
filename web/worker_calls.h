// worker_calls.h - what the module asks of the worker in which it runs; worker.js
// implements it. Texts are UTF-8 without a closing zero.

#ifndef WEB_WORKER_CALLS_H
#define WEB_WORKER_CALLS_H

#include <cstddef>
#include <cstdint>

#define WEB_IMPORT(name) __attribute__((import_module("vorstek"), import_name(name)))
#define WEB_EXPORT(name) __attribute__((export_name(name)))

extern "C"
{
    // Sends an event to the page: {"type":"sound","id":10050}.
    WEB_IMPORT("post") void PostEvent(const char *pJson, size_t nLength);

    // The length of the oldest request that waits; below 0 if there is none.
    WEB_IMPORT("requestLength") int RequestLength();

    // Copies that request, of this length, and removes it.
    WEB_IMPORT("takeRequest") void TakeRequest(char *pText);

    // Sends a picture: numbers as in engine.d.ts, and texts that end in zeros.
    WEB_IMPORT("postPicture")
    void PostPicture(int nWidth, int nHeight, const int32_t *pNumbers, size_t nNumbers,
                     const char *pTexts, size_t nLength);

    // The next two suspend the module: other events of the worker are handled meanwhile.

    // 0: only once.
    WEB_IMPORT("wait") void WaitInWorker(unsigned nMilliseconds);

    // Sends an event to which the page replies; returns the length of the reply.
    WEB_IMPORT("converse") int Converse(const char *pJson, size_t nLength);

    // Copies the reply.
    WEB_IMPORT("takeReply") void TakeReply(char *pText);
}

#endif
