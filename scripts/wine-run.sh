#!/usr/bin/env bash
# Runs a Windows program of the build under Wine, in the build's own prefix.
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"
in_wine_locale "$wine_loader" "$@"
