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

  /// All text in it, unchanged.
  [[nodiscard]] std::string Text() const;
  /// Empty when it has none of that name.
  [[nodiscard]] std::string Attribute(const char* name) const;
  [[nodiscard]] bool HasClass(const std::string& name) const;
  /// The nodes at an XPath relative to this node (".//td").
  [[nodiscard]] std::vector<Node> Find(const std::string& path) const;
  /// Its text, with "\n" in place of each <br/> and each <i> with its content.
  [[nodiscard]] std::string TextWithoutPlaceholders() const;

 private:
  xmlNode* node_;
};

/// A page of the help. It is written so that an XML parser reads it, too.
class Page {
 public:
  /// Nullopt when it is not well formed. `encoding` overrides the page's own declaration.
  static std::optional<Page> Parse(const std::string& bytes, const char* encoding);

  [[nodiscard]] std::vector<Node> Find(const std::string& path) const { return Root().Find(path); }
  /// The texts at the path, which leads to elements or attributes ("//a/@href").
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
