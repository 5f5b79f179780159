#pragma once

#include <libxml/tree.h>
#include <libxml/xpath.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace quillon::test {

/// An element or attribute of a page; valid as long as its page.
class Node {
 public:
  explicit Node(xmlNode* node) : node_(node) {}

  /// All text in it, as it stands.
  [[nodiscard]] std::string Text() const;
  /// Empty when it has none of that name.
  [[nodiscard]] std::string Attribute(const char* name) const;
  [[nodiscard]] bool HasClass(const std::string& name) const;
  /// By an XPath relative to this node; elements are in the namespace "h" (".//h:td").
  [[nodiscard]] std::vector<Node> Find(const std::string& path) const;
  /// What stands in it, with "\n" for <br/> and without what stands in <i>.
  [[nodiscard]] std::string TextWithoutPlaceholders() const;

 private:
  xmlNode* node_;
};

/// A page of the help. It is written so that an XML parser reads it, too.
class Page {
 public:
  /// Nullopt when it is not well formed. `encoding` wins over what the page says.
  static std::optional<Page> Parse(const std::string& bytes, const char* encoding);

  [[nodiscard]] std::vector<Node> Find(const std::string& path) const { return Root().Find(path); }
  /// The texts of what the path leads to: elements or attributes ("//h:a/@href").
  [[nodiscard]] std::vector<std::string> Texts(const std::string& path) const;
  [[nodiscard]] std::string Text() const { return Root().Text(); }

 private:
  struct Free {
    void operator()(xmlDoc* document) const { xmlFreeDoc(document); }
  };
  explicit Page(xmlDoc* document) : document_(document) {}
  [[nodiscard]] Node Root() const { return Node(xmlDocGetRootElement(document_.get())); }

  std::unique_ptr<xmlDoc, Free> document_;
};

}  // namespace quillon::test
