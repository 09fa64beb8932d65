// A listener that records what a scan reports, in order, and answers as a test wishes.
#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "scanner/Listener.h"

class RecordingListener : public Scanner::Listener {
public:
    // "progress: <status> <detail>", "error: <message>", "denied: <path>", "cancelled?"
    std::vector<std::wstring> calls;

    Scanner::AccessDeniedAnswer answer = Scanner::AccessDeniedAnswer::Continue;
    int cancelAtQuestion = 0;  // from this IsCancelled on the answer is yes; 0 for never

    void OnProgress(const std::wstring& status, const std::wstring& detail) override {
        calls.push_back(L"progress: " + status + L" " + detail);
    }
    void OnError(const std::wstring& message) override { calls.push_back(L"error: " + message); }
    Scanner::AccessDeniedAnswer OnAccessDenied(const std::wstring& path) override {
        calls.push_back(L"denied: " + path);
        return answer;
    }
    bool IsCancelled() override {
        calls.push_back(L"cancelled?");
        ++questions_;
        return cancelAtQuestion != 0 && questions_ >= cancelAtQuestion;
    }

    // Those of the calls that begin with this word.
    std::vector<std::wstring> Only(const std::wstring& word) const {
        std::vector<std::wstring> chosen;
        std::copy_if(calls.begin(), calls.end(), std::back_inserter(chosen),
                     [&word](const std::wstring& call) { return call.starts_with(word); });
        return chosen;
    }

private:
    int questions_ = 0;
};
