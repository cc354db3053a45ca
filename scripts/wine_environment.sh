# Sourced by what runs Windows programs: how Wine is set, for whichever prefix.

# No menu entries in the user's home when a shell link is saved, no offers to fetch Mono or Gecko,
# no debugger that waits for an answer when a program crashes.
export WINEDLLOVERRIDES='winemenubuilder.exe=d;winedbg.exe=d;mscoree=;mshtml='
export WINEDEBUG=${WINEDEBUG:--all}
export WINEARCH=win64
export SDL_AUDIODRIVER=dummy
