#!/usr/bin/env bash
# All tests in the sanitizer build. Leaks are not looked for: the toolkit keeps what it made until the process ends.
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"
export ASAN_OPTIONS=detect_leaks=0 UBSAN_OPTIONS=print_stacktrace=1
exec ctest --test-dir build/sanitize --output-on-failure -j "$(nproc)" "$@"
