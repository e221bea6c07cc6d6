#include "mutation/mutant_json.hpp"

namespace mutation {

namespace {

using Json = nlohmann::json;

Json jsonOf(const Mutant& mutant) {
  Json edits = Json::array();
  for (const Edit& edit : mutant.edits) edits.push_back({edit.begin, edit.end, edit.replacement});
  return {{"file", mutant.file},
          {"function", mutant.function},
          {"operation", mutant.operation},
          {"form", mutant.form},
          {"edits", edits},
          {"line", mutant.line},
          {"original", mutant.original},
          {"replacement", mutant.replacement},
          {"isInBody", mutant.isInBody},
          {"related", mutant.related},
          {"executedBy", mutant.executedBy}};
}

Mutant mutantOf(const Json& json) {
  Mutant mutant;
  json.at("file").get_to(mutant.file);
  json.at("function").get_to(mutant.function);
  json.at("operation").get_to(mutant.operation);
  mutant.form = json.at("form").get<Form>();
  for (const Json& edit : json.at("edits")) mutant.edits.push_back({edit[0], edit[1], edit[2]});
  json.at("line").get_to(mutant.line);
  json.at("original").get_to(mutant.original);
  json.at("replacement").get_to(mutant.replacement);
  json.at("isInBody").get_to(mutant.isInBody);
  json.at("related").get_to(mutant.related);
  json.at("executedBy").get_to(mutant.executedBy);
  return mutant;
}

}  // namespace

Json jsonOf(const Mutants& mutants) {
  Json json = {{"mutants", Json::array()}, {"bodies", Json::array()}};
  for (const Mutant& mutant : mutants.mutants) json["mutants"].push_back(jsonOf(mutant));
  for (const FunctionBody& body : mutants.bodies) json["bodies"].push_back({body.file, body.symbol, body.begin});
  return json;
}

Mutants mutantsOf(const Json& json) {
  Mutants mutants;
  for (const Json& mutant : json.at("mutants")) mutants.mutants.push_back(mutantOf(mutant));
  for (const Json& body : json.at("bodies")) mutants.bodies.push_back({body[0], body[1], body[2]});
  return mutants;
}

}  // namespace mutation
