# The two commands a newcomer needs: `make demo` and `make test`.
# Each target installs the Debian packages it needs and lacks before it starts
# (tools/bootstrap.sh TARGET); `make bootstrap` installs everything.

NATIVE := build/native
WIN    := build/win
JOBS   ?= $(shell nproc)
TOOLCHAIN = -DCMAKE_TOOLCHAIN_FILE=cmake/toolchain-mingw64.cmake
CMAKE_WIN = cmake -S . -B $(WIN) $(TOOLCHAIN) -DCMAKE_BUILD_TYPE=Debug
CMAKE_NATIVE = cmake -S . -B $(NATIVE) -DCMAKE_BUILD_TYPE=Debug

.PHONY: all bootstrap native win test demo tour bench fuzz clean
# Targets run one after another (each installs its packages with apt-get,
# which takes a lock); the builds themselves use JOBS cores.
.NOTPARALLEL:

all: native win

bootstrap:
	@tools/bootstrap.sh all

native:
	@tools/bootstrap.sh native
	@[ -f $(NATIVE)/CMakeCache.txt ] || $(CMAKE_NATIVE) >/dev/null
	cmake --build $(NATIVE) -j$(JOBS)

win:
	@tools/bootstrap.sh win
	@[ -f $(WIN)/CMakeCache.txt ] || $(CMAKE_WIN) >/dev/null
	cmake --build $(WIN) -j$(JOBS)

# Native tests (sanitizers) and Windows tests (Wine) in one CTest run.
test: native win
	@printf 'subdirs("native" "win")\n' > build/CTestTestfile.cmake
	ctest --test-dir build --output-on-failure -j$(JOBS)

# With a display: the interactive demo. Without one: the tour, which saves a
# PNG of every window it shows.
demo: win
ifeq ($(strip $(DISPLAY)),)
	@$(MAKE) --no-print-directory tour
else
	$(WIN)/winerun --display $(WIN)/bin/twdemo.exe
endif

tour: win
	@rm -rf $(WIN)/tour
	@$(WIN)/winerun $(WIN)/bin/twdemo.exe --tour 'Z:$(CURDIR)/$(WIN)/tour' >/dev/null
	@echo "Tour pictures:"
	@ls -1 $(CURDIR)/$(WIN)/tour/*.png

# Benchmarks run natively, optimised and without sanitizers.
bench:
	@tools/bootstrap.sh bench
	cmake -S . -B build/bench -DCMAKE_BUILD_TYPE=Release -DTW_SANITIZE=OFF -DTW_BENCH=ON >/dev/null
	cmake --build build/bench -j$(JOBS) --target tw_benchmarks
	cmake -S . -B build/bench-win $(TOOLCHAIN) -DCMAKE_BUILD_TYPE=Release -DTW_BENCH=ON >/dev/null
	cmake --build build/bench-win -j$(JOBS) --target tw_benchmarks
	@set -e; found=0; for b in build/bench/bin/bench_*; do \
	    [ -x "$$b" ] || continue; found=1; "$$b"; done; \
	for b in build/bench-win/bin/bench_*.exe; do \
	    [ -f "$$b" ] || continue; found=1; build/bench-win/winerun "$$b"; done; \
	    [ $$found = 1 ] || echo "no benchmarks yet"

# Every fuzz target for FUZZ_SECONDS each (clang, libFuzzer, ASan, UBSan).
FUZZ_SECONDS ?= 10
fuzz:
	@tools/bootstrap.sh fuzz
	CC=clang CXX=clang++ cmake -S . -B build/fuzz -DCMAKE_BUILD_TYPE=RelWithDebInfo -DTW_FUZZ=ON -DTW_SANITIZE=OFF >/dev/null
	cmake --build build/fuzz -j$(JOBS) --target tw_fuzzers
	@set -e; found=0; for f in build/fuzz/bin/fuzz_*; do \
	    [ -x "$$f" ] || continue; found=1; name=$${f##*/fuzz_}; \
	    mkdir -p build/fuzz/corpus/$$name; \
	    echo "fuzzing $$name for $(FUZZ_SECONDS) s"; \
	    "$$f" -max_total_time=$(FUZZ_SECONDS) -print_final_stats=0 \
	        build/fuzz/corpus/$$name $$( [ -d fuzz/corpus/$$name ] && echo fuzz/corpus/$$name ) \
	        > build/fuzz/$$name.log 2>&1 || { tail -40 build/fuzz/$$name.log; exit 1; }; \
	    grep -E "^#[0-9]+.*DONE|Done [0-9]+ runs" build/fuzz/$$name.log | tail -1; \
	done; [ $$found = 1 ] || echo "no fuzz targets yet"

clean:
	rm -rf build
