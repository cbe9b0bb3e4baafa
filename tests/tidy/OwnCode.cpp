// A check for clang-tidy that finds no fault itself: it has all others look at the project's own
// declarations alone. Whatever they find in a system header is not shown anyway, and looking for it
// takes nine tenths of the time.

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
        std::vector<Decl *> own;
        for (Decl *declaration : result.Context->getTranslationUnitDecl()->noload_decls()) {
            if (!sources.isInSystemHeader(sources.getExpansionLoc(declaration->getLocation())))
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
