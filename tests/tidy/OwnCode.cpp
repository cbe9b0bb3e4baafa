// A check for clang-tidy that finds no fault itself: it has all others look at the one file that is
// read for its own sake. What it includes is read for its own sake elsewhere, and looking at that
// again in each file takes most of the time.

#include <algorithm>
#include <clang-tidy/ClangTidyCheck.h>
#include <clang-tidy/ClangTidyModule.h>
#include <clang-tidy/ClangTidyModuleRegistry.h>
#include <clang/AST/ASTContext.h>
#include <vector>

namespace {

using namespace clang;

class OwnCode : public tidy::ClangTidyCheck
{
public:
    using ClangTidyCheck::ClangTidyCheck;

    void registerMatchers(ast_matchers::MatchFinder *finder) override
    {
        finder->addMatcher(ast_matchers::translationUnitDecl(), this);
    }

    /// The translation unit is met before everything in it, which can therefore still be left out.
    void check(const ast_matchers::MatchFinder::MatchResult &result) override
    {
        const SourceManager &sources = *result.SourceManager;
        const auto fileOf = [&sources](const Decl *declaration) {
            return sources.getFileID(sources.getExpansionLoc(declaration->getLocation()));
        };
        const auto declarations = result.Context->getTranslationUnitDecl()->noload_decls();
        const FileID main = sources.getMainFileID();
        // A file that declares nothing stands for those that it includes.
        const bool standsForOthers =
            std::none_of(declarations.begin(), declarations.end(),
                         [&](const Decl *declaration) { return fileOf(declaration) == main; });
        std::vector<Decl *> own;
        for (Decl *declaration : declarations) {
            const FileID file = fileOf(declaration);
            const FileID including = sources.getFileID(sources.getIncludeLoc(file));
            if ((standsForOthers ? including : file) == main)
                own.push_back(declaration);
        }
        result.Context->setTraversalScope(own);
    }
};

class OwnCodeModule : public tidy::ClangTidyModule
{
public:
    void addCheckFactories(tidy::ClangTidyCheckFactories &factories) override
    {
        factories.registerCheck<OwnCode>("quenara-own-code");
    }
};

const tidy::ClangTidyModuleRegistry::Add<OwnCodeModule> registered("quenara", "");

} // namespace
