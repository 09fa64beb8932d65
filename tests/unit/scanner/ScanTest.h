// What the scans of real folders, or of the stand-in's, begin with.
#pragma once

#include <gtest/gtest.h>

#include "scanner/Scan.h"
#include "support/TempFolder.h"
#include "unit/scanner/RecordingListener.h"
#include "unit/scanner/TestTree.h"

class ScanTest : public testing::Test {
protected:
    ScanTest() {
        options.recursive = true;
        options.listener = &listener;
    }

    bool Run() { return Scanner::Scan(result, options, folder.Path()); }

    TestSupport::TempFolder folder;
    RecordingListener listener;
    Scanner::Options options;
    Scanner::Result result;
};
