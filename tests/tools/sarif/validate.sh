#!/usr/bin/env bash
# Runs Microsoft's SARIF validator on what check --format=sarif writes for
# findings of every kind: shown, accepted by a comment and by --disable, a
# file that cannot be read, names and paths beyond ASCII. Fails on any error
# the validator reports (it exits 0 either way).
# Usage: validate.sh OVELA_TUNE SOURCE_DIR WORK_DIR
set -euo pipefail
tool=$1
source_dir=$2
work=$3
mkdir -p "$work"

# The validator is a self-contained program that npm installs once per build
# directory.
validator="$work/node_modules/.bin/sarif-multitool"
if [[ ! -x "$validator" ]]; then
    npm install --prefix "$work" --no-audit --no-fund --loglevel=error \
        @microsoft/sarif-multitool@5.7.0 >/dev/null
fi

cd "$work"
cp "$source_dir/tests/tools/sarif/findings.xml" "größe findings.xml"
status=0
"$tool" check --format=sarif --severity=note --disable=default-tuning \
    "größe findings.xml" "$source_dir/examples/qrn-default.xml" no-such-file.xml \
    >check.sarif || status=$?
if [[ $status -ne 3 ]]; then
    echo "check exited with $status, not 3 (a file does not load)" >&2
    exit 1
fi
"$validator" validate check.sarif >validation.txt 2>&1 || true
cat validation.txt
if grep -q ': error ' validation.txt || ! grep -q 'Analysis completed successfully' validation.txt; then
    echo "the SARIF log does not validate" >&2
    exit 1
fi
