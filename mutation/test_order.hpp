// The order in which the tests run with a mutant. The tests that are most likely to detect the mutant run first.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "mutation/reference_run.hpp"

namespace mutation {

// How many mutants each test killed, by name.
using KillCounts = std::map<std::string, std::size_t>;

struct TestQuery {
  // At least one of these numbers is logged if the mutant is executed. If it is empty, all tests are returned.
  std::vector<unsigned> numbers;
  std::vector<std::string> words;  // words in the changed code, which can be in the name of a test
  std::vector<unsigned> related;   // the numbers of the functions to which the changed code refers
  std::string lastKiller;          // the test that killed this mutant in an earlier run, or empty
  KillCounts functionKills;        // how many mutants of the same function each test killed
  KillCounts fileKills;            // how many mutants of the same file each test killed
};

// Returns the identifiers in the text, and the words that they consist of, in lower case. Omits words with fewer than
// five letters.
std::vector<std::string> wordsOf(const std::string& text);

// The order is: the last killer; the tests whose names match words with at least ten letters in total; the tests that
// killed mutants of the same function; the most specific tests; and then the other tests, one from each suite in turn,
// beginning with the tests that execute the most code. A test is more specific if it executes more related functions,
// killed more mutants of the file, or executes less code.
std::vector<const KnownTest*> orderedTests(const std::vector<KnownTest>& tests, const TestQuery& query);

}  // namespace mutation
